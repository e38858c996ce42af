// SPDX-License-Identifier: MIT
// The editor's window, driven by pointer and keyboard.
#pragma once

#include <gtest/gtest.h>

#include <QAccessible>
#include <QQmlEngine>
#include <QQuickItem>
#include <QTest>

#include "tests/support/editor_stage.h"

namespace glintboard::test {

class EditorWindowTest : public testing::Test {
 protected:
  EditorWindowTest() {
    stage.app("calendar", "Calendar", "rectangle.grid.2x2", 10);
    stage.app("files", "Files", "folder.fill", 215);
    stage.app("music", "Music", "music.note", 340);
    stage.app("notes", "Notes", "pencil", 45);
    stage.listShortcuts(std::string("echo 'Brew (") + EditorStage::briefId + ")'; echo 'Tidy up (" +
                        EditorStage::tidyId + ")'");
  }

  // Any warning of the QML engine fails the test.
  void open(const Appearance& appearance = {}) {
    model = stage.open(appearance).shared_from_this();
    window = stage.presenter->window();
    ASSERT_NE(window->rootObject(), nullptr);
    QObject::connect(window->engine(), &QQmlEngine::warnings, [](const QList<QQmlError>& errors) {
      for (const auto& error : errors) {
        ADD_FAILURE() << error.toString().toStdString();
      }
    });
    ASSERT_TRUE(test::turnUntil([&] { return stage.isLoaded(); }));
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    settle();
  }
  void storeDeck(std::vector<DeckTile> tiles, const std::string& name = "On Air") {
    stage.deck(DeckCategoryID::streaming, name, std::move(tiles));
  }
  // Stores a deck of `count` applications: "App 0", "App 1", …
  void storeApps(int count) {
    std::vector<DeckTile> tiles;
    for (int i = 0; i < count; ++i) {
      const auto number = std::to_string(i);
      stage.app("app" + number, "App " + number, "plus", i * 15);
      tiles.push_back(DeckTile::app(0, "App " + number, "app" + number));
    }
    storeDeck(tiles);
  }
  static DeckTile app(const char* id, const char* label) { return DeckTile::app(0, label, id); }
  // Waits until animations have ended.
  static void settle() { EditorStage::turnFor(350); }

  QQuickItem* item(const QString& name) const {
    auto* found = named(window->rootObject(), name);
    EXPECT_NE(found, nullptr) << name.toStdString();
    return found;
  }
  // The middle of a card of the visible library, in the window.
  QPoint card(const QString& label) const {
    return middleOf(visible(label, QStringLiteral("add()")));
  }
  // The middle of a key's face; the caption is below.
  QPoint key(const QString& label) const { return middleOf(keyItem(label)) - QPoint(0, 8); }
  QQuickItem* keyItem(const QString& label) const {
    return visible(label, QStringLiteral("remove()"));
  }
  // The middle of a slot, from 0.
  QPoint slot(int index) const {
    auto* phone = item(QStringLiteral("phone"));
    auto* grid = item(QStringLiteral("keys"));
    const qreal width = phone->property("cellWidth").toReal();
    const qreal height = phone->property("cellHeight").toReal();
    const qreal face = phone->property("faceSize").toReal();
    return grid->mapToScene(QPointF((index % 4 + 0.5) * width, (index / 4) * height + face / 2))
        .toPoint();
  }
  static QPoint middleOf(const QQuickItem* of) {
    return of->mapToScene(QPointF(of->width() / 2, of->height() / 2)).toPoint();
  }

  void click(QPoint at) {
    QTest::mouseClick(window, Qt::LeftButton, {}, at);
    settle();
  }
  void click(const QString& name) { click(middleOf(item(name))); }
  void press(int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(window, static_cast<Qt::Key>(key), modifiers);
  }
  void type(const char* text) {
    for (; *text != 0; ++text) {
      QTest::keyClick(window, *text);
    }
  }
  void moveTo(QPoint from, QPoint to) {
    for (int step = 1; step <= 12; ++step) {
      QTest::mouseMove(window, from + (to - from) * step / 12);
      QCoreApplication::processEvents();
    }
  }
  void drag(QPoint from, QPoint to) {
    QTest::mousePress(window, Qt::LeftButton, {}, from);
    moveTo(from, to);
    EditorStage::turnFor(30);
    QTest::mouseRelease(window, Qt::LeftButton, {}, to);
    settle();
  }

  // The labels of the phone's keys in the order of their positions, as "Files, Music".
  std::string shown() const {
    settle();
    std::map<std::pair<int, int>, std::string> labels;
    const auto cells = all(item(QStringLiteral("keys")), "remove()");
    for (const auto* cell : cells) {
      labels[{qRound(cell->y()), qRound(cell->x())}] =
          cell->property("label").toString().toStdString();
    }
    std::string text;
    for (const auto& [index, label] : labels) {
      text += (text.empty() ? "" : ", ") + label;
    }
    return text;
  }

  EditorStage stage;
  std::shared_ptr<DeckEditorModel> model;
  QPointer<QQuickView> window;

 private:
  // Searches the visual children, since delegates are not QObject children.
  static QQuickItem* named(QQuickItem* root, const QString& name) {
    for (auto* child : root->childItems()) {
      auto* found = child->objectName() == name ? child : named(child, name);
      if (found != nullptr) {
        return found;
      }
    }
    return nullptr;
  }
  // The items with that signal: `add` of cards, `remove` of keys.
  static QList<QQuickItem*> all(QQuickItem* root, const char* signal) {
    QList<QQuickItem*> found;
    for (auto* child : root->childItems()) {
      if (child->metaObject()->indexOfSignal(signal) >= 0 && child->isVisible() &&
          child->metaObject()->indexOfProperty("payload") >= 0) {
        found.append(child);
      }
      found += all(child, signal);
    }
    return found;
  }
  QQuickItem* visible(const QString& label, const QString& signal) const {
    for (auto* candidate : all(window->rootObject(), signal.toLatin1())) {
      if (candidate->property("label") == label) {
        return candidate;
      }
    }
    ADD_FAILURE() << "not shown: " << label.toStdString();
    return window->rootObject();
  }
};

}  // namespace glintboard::test
