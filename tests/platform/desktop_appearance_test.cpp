// SPDX-License-Identifier: MIT
#include "platform/desktop_session.h"

#include <gtest/gtest.h>

#include "platform/linux/desktop/appearance_settings.h"
#include "tests/platform/desktop_folders.h"
#include "tests/support/child_process.h"
#include "tests/support/session_bus.h"

namespace glintboard {
namespace {

TEST(DesktopAppearanceTest, StartsWithFilesAndFollowsThePortal) {
  const test::TemporaryFolder home;
  home.write("gtk-4.0/settings.ini", "[Settings]\ngtk-theme-name=HighContrast\n");
  ::setenv("XDG_CONFIG_HOME", home.path().c_str(), 1);
  const test::SessionBus bus;
  std::mutex mutex;
  DesktopAppearance reported;
  const auto isTold = [&](const DesktopAppearance& wanted) {
    return test::eventually([&] {
      const std::lock_guard lock(mutex);
      return reported == wanted;
    });
  };
  const DesktopSession session([&](DesktopAppearance appearance) {
    const std::lock_guard lock(mutex);
    reported = appearance;
  });
  EXPECT_EQ(session.appearance(), (DesktopAppearance{.increasedContrast = true}));

  const test::ChildProcess portal(
      {"/usr/bin/python3", GLINTBOARD_TEST_SUPPORT "/settings_portal.py"});
  EXPECT_TRUE(isTold({.dark = true, .increasedContrast = true, .textScale = 1.5}));
  EXPECT_EQ(session.appearance().textScale, 1.5);

  EXPECT_EQ(
      test::outputOf("gdbus call --session --dest org.freedesktop.portal.Desktop --object-path "
                     "/org/freedesktop/portal/desktop --method "
                     "org.freedesktop.portal.Settings.Change 2>&1"),
      "()\n");
  EXPECT_TRUE(isTold({.increasedContrast = true, .reducedMotion = true, .textScale = 1.5}));
}

TEST(DesktopAppearanceTest, ReadsSettingsFilesWithoutAPortal) {
  ::unsetenv("GTK_THEME");
  const auto kde = "[Colors:Window]\nBackgroundNormal=42,46,50\n[KDE]\nAnimationDurationFactor=0\n";
  struct Case {
    std::string file;
    std::string content;
    DesktopAppearance appearance;
  };
  for (const auto& [file, content, appearance] : std::vector<Case>{
           {"none", "", {}},
           {"gtk-3.0/settings.ini", "[Settings]\ngtk-theme-name=Adwaita-dark\n", {.dark = true}},
           {"gtk-4.0/settings.ini",
            "[Settings]\ngtk-application-prefer-dark-theme=1\ngtk-enable-animations=false\n",
            {.dark = true, .reducedMotion = true}},
           {"kdeglobals", kde, {.dark = true, .reducedMotion = true}},
           {"glib-2.0/settings/keyfile",
            "[org/gnome/desktop/interface]\ncolor-scheme='prefer-dark'\ntext-scaling-factor=99.0\n"
            "[org/gnome/desktop/a11y/interface]\nhigh-contrast=true\n",
            {.dark = true, .increasedContrast = true, .textScale = 4}},
           {"glib-2.0/settings/keyfile",
            "[org/gnome/desktop/interface]\ncolor-scheme=7\ntext-scaling-factor='x\n",
            {}}}) {
    const test::DesktopFolders desktop;
    desktop.root.write("home/config/" + file, content);
    EXPECT_EQ(appearanceSettingsInFiles(desktop.folders).resolved({}), appearance) << file << "\n"
                                                                                   << content;
  }
}

}  // namespace
}  // namespace glintboard
