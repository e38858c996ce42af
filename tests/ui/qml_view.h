// SPDX-License-Identifier: MIT
// A piece of QML in a window of its own, drawn in memory.
#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>
#include <memory>

#include "ui/qml_engine.h"

namespace glintboard {

// Any warning of the QML engine fails the test that owns the view.
class QmlView {
 public:
  // `source` is the text of one item; the needed imports are added.
  explicit QmlView(const QByteArray& source, const Appearance& appearance = {},
                   const QVariantMap& properties = {}) {
    QObject::connect(&engine, &QQmlEngine::warnings, [](const QList<QQmlError>& errors) {
      for (const auto& error : errors) {
        ADD_FAILURE() << error.toString().toStdString();
      }
    });
    prepareEngine(engine, appearance);
    QQmlComponent component(&engine);
    component.setData("import QtQuick\nimport Glintboard.UI\n" + source, QUrl("qrc:/Test.qml"));
    root.reset(qobject_cast<QQuickItem*>(component.createWithInitialProperties(properties)));
    if (!root) {
      ADD_FAILURE() << component.errorString().toStdString();
      return;
    }
    root->setParentItem(window.contentItem());
    if (root->size().isEmpty()) {
      root->setSize({root->implicitWidth(), root->implicitHeight()});
    }
    window.setColor(themeOf(engine).windowTop());
    window.resize(root->size().toSize());
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    window.requestActivate();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  }

  QImage grab() { return window.grabWindow(); }
  template <class Item = QQuickItem>
  Item* find(const QString& objectName) {
    return root->findChild<Item*>(objectName);
  }

  QQmlEngine engine;
  QQuickWindow window;
  std::unique_ptr<QQuickItem> root;
};

}  // namespace glintboard
