// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QSignalSpy>

#include "tests/ui/qml_view.h"

namespace glintboard {
namespace {

constexpr const char* allControls = R"(
Item {
  width: 320; height: 420
  Column {
    spacing: 8
    width: 300
    PillButton { objectName: "primary"; kind: PillButton.Primary; text: "Save"; symbolName: "plus" }
    PillButton { objectName: "secondary"; text: "Cancel" }
    MenuRowButton { objectName: "row"; width: parent.width; text: "Edit Deck" }
    MenuRowButton { width: parent.width; text: "Unpair iPhone"; destructive: true; shortcutText: "Ctrl+Q" }
    GlintTextField { width: parent.width; symbolName: "magnifyingglass"; placeholderText: "Search" }
    GlintTextField { inPlace: true; width: parent.width; text: "Streaming"; accessibleName: "Deck name" }
    Divider { width: parent.width }
    Spinner { objectName: "spinner" }
    Symbol { name: "lock.fill"; color: Theme.dangerText; size: 20 }
    GlassPanel { width: 300; height: 60; raised: true; Text { text: "panel"; color: Theme.text; font: Theme.fonts.ui(Theme.Body) } }
  }
})";

TEST(Controls, WorkFromTheKeyboardAndShowTheFocus) {
  QmlView view(allControls);
  auto* primary = view.find("primary");
  QSignalSpy clicks(primary, SIGNAL(clicked()));
  const auto picture = [&] { return view.grab().copy(0, 0, 200, 90); };
  const QImage idle = picture();
  QTest::mouseClick(&view.window, Qt::LeftButton, {}, primary->mapToScene({10, 10}).toPoint());
  EXPECT_EQ(clicks.size(), 1);
  QTest::mouseMove(&view.window, {310, 410});
  QTest::qWait(300);
  EXPECT_FALSE(primary->property("visualFocus").toBool());
  EXPECT_TRUE(picture() == idle);
  QTest::keyClick(&view.window, Qt::Key_Tab);
  EXPECT_TRUE(view.find("secondary")->property("visualFocus").toBool());
  QTest::qWait(200);
  EXPECT_FALSE(picture() == idle);
  QTest::keyClick(&view.window, Qt::Key_Backtab);
  for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
    QTest::keyClick(&view.window, key);
  }
  EXPECT_EQ(clicks.size(), 4);
  for (const auto key : {Qt::Key_Return, Qt::Key_Space}) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent held(type, key, {}, {}, true);
      QCoreApplication::sendEvent(&view.window, &held);
    }
  }
  EXPECT_EQ(clicks.size(), 4) << "auto-repeat does not click";
  primary->setProperty("busy", true);
  QTest::keyClick(&view.window, Qt::Key_Space);
  QTest::keyClick(&view.window, Qt::Key_Return);
  QTest::mouseClick(&view.window, Qt::LeftButton, {}, primary->mapToScene({10, 10}).toPoint());
  EXPECT_EQ(clicks.size(), 4);
}

}  // namespace
}  // namespace glintboard
