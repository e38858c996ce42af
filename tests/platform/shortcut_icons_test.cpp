// SPDX-License-Identifier: MIT
#include "platform/linux/shortcuts/shortcut_icons.h"

#include <gtest/gtest.h>

#include <map>

#include "platform/linux/shortcuts/shortcut_folder.h"
#include "platform/linux/shortcuts/shortcut_tile.h"
#include "tests/platform/applications_test.h"
#include "tests/support/painted.h"

namespace glintboard {
namespace {

class ShortcutIconsTest : public test::IndexTest {
 protected:
  void start() {
    open();
    icons_ = shortcutIcons(index_, desktop_.folders);
  }
  std::map<std::string, std::string> stamps() {
    std::map<std::string, std::string> found;
    for (const auto& icon : icons_->icons()) {
      found[icon.identifier] = icon.stamp;
    }
    return found;
  }
  QImage draw(const std::string& identifier) {
    const auto icon = icons_->icon(identifier);
    return icon ? icon->draw(64) : QImage();
  }

  ShortcutFolder folder_{ShortcutFolder::pathIn(desktop_.folders)};
  std::optional<ShortcutIconClient> icons_;
};

TEST_F(ShortcutIconsTest, DrawsTheNamedIconOrATile) {
  test::paint(desktop_.root, "system/icons/hicolor/128x128/apps/browser.png", Qt::blue);
  desktop_.entry("system/applications/browser.desktop",
                 "Exec=true\nIcon=browser\nActions=new;\n[Desktop Action new]\nName=New\n");
  const auto file = test::paint(desktop_.root, "own.png", Qt::red);
  const auto own = folder_.create({"Own", "true", file.string()});
  const auto plain = folder_.create({"Plain", "true", {}});
  const auto lost = folder_.create({"Lost", "true", "no-such-icon"});
  const auto broken =
      folder_.create({"Broken", "true", desktop_.root.write("broken.png", "no image").string()});
  start();

  std::string lower = own.identifier;
  std::transform(lower.begin(), lower.end(), lower.begin(), ::tolower);
  EXPECT_EQ(draw(lower).pixelColor(32, 32), QColor(Qt::red));
  EXPECT_EQ(draw(plain.identifier), drawShortcutTile(plain.identifier, 64));
  EXPECT_EQ(draw(lost.identifier), drawShortcutTile(lost.identifier, 64));
  EXPECT_NE(draw(lost.identifier), draw(plain.identifier));
  EXPECT_EQ(draw(broken.identifier).size(), QSize(64, 64));
  EXPECT_TRUE(draw("unknown").isNull());
  auto actions = stamps();
  for (const auto& shortcut : {own, plain, lost, broken}) {
    actions.erase(shortcut.identifier);
  }
  ASSERT_EQ(actions.size(), 1U);
  EXPECT_EQ(draw(actions.begin()->first).pixelColor(32, 32), QColor(Qt::blue))
      << "the application's";
}

TEST_F(ShortcutIconsTest, StampsChangeOnlyWithTheIcon) {
  const auto file = test::paint(desktop_.root, "own.png", Qt::red);
  const auto own = folder_.create({"Own", "true", file.string()});
  const auto plain = folder_.create({"Plain", "true", {}});
  start();
  const auto first = stamps();
  EXPECT_EQ(first.size(), 2u);
  folder_.change(plain, {"Renamed", "false", {}});
  EXPECT_EQ(stamps(), first);
  std::filesystem::rename(test::paint(desktop_.root, "new.png", Qt::green), file);
  const auto repainted = stamps();
  EXPECT_NE(repainted.at(own.identifier), first.at(own.identifier));
  EXPECT_EQ(repainted.at(plain.identifier), first.at(plain.identifier));
  folder_.change(own, {{}, {}, ""});
  EXPECT_NE(stamps().at(own.identifier), repainted.at(own.identifier));
  folder_.remove(own);
  EXPECT_EQ(stamps().size(), 1u);
}

}  // namespace
}  // namespace glintboard
