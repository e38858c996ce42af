// SPDX-License-Identifier: MIT
#include "platform/linux/applications/icon_lookup.h"

#include <gtest/gtest.h>

#include <thread>

#include "tests/platform/desktop_folders.h"
#include "tests/support/session_bus.h"

namespace glintboard {
namespace {

class IconLookupTest : public testing::Test {
 protected:
  IconLookupTest() {
    icon("system/icons/hicolor/48x48/apps/common.png");
    theme("hicolor", "", {"48x48/apps"});
  }

  void icon(const std::string& file) { desktop_.root.write(file, ""); }
  // Writes the index of a theme whose fixed folders are named "SIZExSIZE/…".
  void theme(const std::string& name, const std::string& inherits,
             const std::vector<std::string>& folders, const std::string& more = "") {
    std::string listed;
    std::string groups;
    for (const auto& folder : folders) {
      listed += folder + ",";
      groups += "[" + folder + "]\nSize=" + folder.substr(0, folder.find('x')) + "\nType=Fixed\n";
    }
    desktop_.root.write("system/icons/" + name + "/index.theme",
                        "[Icon Theme]\nName=t\nInherits=" + inherits + "\nDirectories=" + listed +
                            (more.empty() ? "" : "drawn/apps") + "\n" + groups + more);
  }
  // Writes a theme with an icon "common" and returns the path of that.
  std::string themeWithCommon(const std::string& name) {
    theme(name, "", {"64x64/apps"});
    const auto file = "system/icons/" + name + "/64x64/apps/common.png";
    icon(file);
    return file;
  }
  void choose(const std::string& name) {
    desktop_.root.write("home/config/gtk-3.0/settings.ini",
                        "[Settings]\ngtk-icon-theme-name=" + name + "\n");
  }
  std::string found(const std::string& name) {
    const auto file = lookup_.find(name);
    return file.empty() ? "" : file.lexically_relative(desktop_.root.path()).string();
  }

  test::DesktopFolders desktop_;
  IconLookup lookup_{desktop_.folders};
};

TEST_F(IconLookupTest, SearchesThemesThenUnthemedFolders) {
  const std::string scalable = "[drawn/apps]\nSize=48\nMinSize=8\nMaxSize=512\nType=Scalable\n";
  theme("mine", "parent,mine,../../etc", {"16x16/apps", "64x64/apps", "256x256/apps", "512x512/a"},
        scalable);
  theme("parent", "grandparent", {"128x128/apps", "32x32@2/apps"},
        "[drawn/apps]\nSize=16\nMaxSize=24\nType=Scalable\n");
  theme("grandparent", "mine", {"22x22/apps"});
  choose("mine");
  for (const char* file :
       {"mine/16x16/apps/sizes.png", "mine/64x64/apps/sizes.png", "mine/256x256/apps/sizes.png",
        "mine/512x512/a/sizes.png", "mine/16x16/apps/small.png", "mine/64x64/apps/small.xpm",
        "mine/256x256/apps/drawn.png", "mine/drawn/apps/drawn.svg", "mine/16x16/apps/both.png",
        "parent/128x128/apps/both.png", "parent/128x128/apps/exact.png",
        "parent/drawn/apps/exact.svg", "grandparent/22x22/apps/org.test.Old.svgz",
        "grandparent/22x22/apps/common.png", "unthemed.svg", "mine/16x16/apps/glyph-symbolic.svg",
        "parent/128x128/apps/plain.png"}) {
    icon(std::string("system/icons/") + file);
  }
  icon("home/.icons/personal.png");
  icon("home/data/icons/mine/64x64/apps/added.png");
  icon("local/pixmaps/old.xpm");
  icon("system/pixmaps/old.xpm");
  const struct {
    const char* name;
    const char* file;
  } cases[] = {
      {"sizes", "system/icons/mine/256x256/apps/sizes.png"},
      {"small", "system/icons/mine/64x64/apps/small.xpm"},
      {"drawn", "system/icons/mine/drawn/apps/drawn.svg"},
      {"both", "system/icons/mine/16x16/apps/both.png"},
      {"exact", "system/icons/parent/128x128/apps/exact.png"},
      {"org.test.Old", "system/icons/grandparent/22x22/apps/org.test.Old.svgz"},
      {"common", "system/icons/grandparent/22x22/apps/common.png"},
      {"added", "home/data/icons/mine/64x64/apps/added.png"},
      {"unthemed", "system/icons/unthemed.svg"},
      {"personal", "home/.icons/personal.png"},
      {"old", "local/pixmaps/old.xpm"},
      {"sizes.png", "system/icons/mine/256x256/apps/sizes.png"},
      {"small.svg", "system/icons/mine/64x64/apps/small.xpm"},
      {"glyph", "system/icons/mine/16x16/apps/glyph-symbolic.svg"},
      {"glyph-symbolic", "system/icons/mine/16x16/apps/glyph-symbolic.svg"},
      {"plain-symbolic", "system/icons/parent/128x128/apps/plain.png"},
      {"absent", ""},
      {"../mine/16x16/apps/both", ""},
      {"", ""},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(found(each.name), each.file) << each.name;
  }
  EXPECT_EQ(found((desktop_.root / "system/pixmaps/old.xpm").string()), "system/pixmaps/old.xpm");
  EXPECT_EQ(found((desktop_.root / "system/pixmaps").string()), "") << "not a file";
}

TEST_F(IconLookupTest, SurvivesDamagedAndMissingThemes) {
  for (const auto* index : {"", "no group\n", "[Icon Theme]\nInherits=mine\nDirectories=a,/,..,,\n",
                            "[Icon Theme]\nDirectories=a\n[a]\nSize=99999999999\nScale=-7\n"}) {
    desktop_.root.write("system/icons/mine/index.theme", index);
    choose("mine");
    IconLookup lookup(desktop_.folders);
    EXPECT_EQ(lookup.find("absent"), "") << index;
    EXPECT_FALSE(lookup.find("common").empty()) << index;
  }
  std::filesystem::remove(desktop_.root / "system/icons/hicolor/index.theme");
  choose("no-such-theme");
  IconLookup lookup(desktop_.folders);
  EXPECT_FALSE(lookup.find("common").empty()) << "icons are installed there even without an index";
}

TEST_F(IconLookupTest, NoticesInstalledChosenAndRemovedIcons) {
  const std::string folder = "system/icons/hicolor/48x48/apps/";
  const auto finds = [&](const std::string& name, const std::string& file) {
    return test::eventually([&] { return found(name) == file; });
  };
  EXPECT_EQ(found("common"), folder + "common.png");
  const auto mine = themeWithCommon("mine");
  choose("mine");
  EXPECT_TRUE(finds("common", mine));
  std::filesystem::remove(desktop_.root / mine);
  EXPECT_EQ(found("common"), folder + "common.png");
  EXPECT_EQ(found("new"), "");
  desktop_.root.write("home/config/kdeglobals", "[Icons]\nTheme=other\n");
  const auto other = themeWithCommon("other");
  icon("home/data/icons/hicolor/48x48/apps/new.png");
  EXPECT_TRUE(finds("new", "home/data/icons/hicolor/48x48/apps/new.png"));
  EXPECT_EQ(found("common"), folder + "common.png") << "ignores the setting of another desktop";
  desktop_.folders.currentDesktop = "KDE";
  EXPECT_EQ(IconLookup(desktop_.folders).find("common"), desktop_.root / other);
}

TEST_F(IconLookupTest, PrefersTheThemeOfThePortal) {
  const test::SessionBus bus;
  const auto theirs = desktop_.root.write("theme", "chosen").string();
  const test::ChildProcess portal(
      {"/usr/bin/python3", GLINTBOARD_TEST_SUPPORT "/settings_portal.py", theirs});
  ASSERT_TRUE(test::eventually([] {
    return ::system("gdbus wait --session --timeout 1 org.freedesktop.portal.Desktop") == 0;
  }));
  const auto chosen = themeWithCommon("chosen");
  choose("no-such-theme");
  EXPECT_EQ(found("common"), chosen);

  // The settings file changes before the portal reports the change.
  const auto another = themeWithCommon("another");
  desktop_.root.write("home/config/dconf/user", "changed");
  std::this_thread::sleep_for(std::chrono::milliseconds(60));
  // On a busy machine the first reply of the portal may time out.
  EXPECT_TRUE(test::eventually([&] { return found("common") == chosen; }));
  desktop_.root.write("theme", "another");
  EXPECT_TRUE(test::eventually([&] { return found("common") == another; }));
}

}  // namespace
}  // namespace glintboard
