#include "platform/linux/identifier_table.h"

#include <gmock/gmock.h>

#include "platform/linux/installed_applications.h"
#include "tests/platform/desktop_folders.h"

namespace glintboard {
namespace {

using testing::ElementsAre;
using testing::Pair;

std::vector<DesktopEntry> entries(const std::vector<std::string>& ids) {
  std::vector<DesktopEntry> made;
  for (const auto& id : ids) {
    DesktopEntry entry;
    entry.id = id;
    entry.path = "/apps/" + id + ".desktop";
    made.push_back(entry);
  }
  return made;
}

TEST(IdentifierTable, AKnownProgramBearsItsIdentifierHoweverItIsPackaged) {
  const test::DesktopFolders desktop;
  for (const char* id : {"steam", "com.valvesoftware.Steam", "steam_steam"}) {
    EXPECT_THAT(knownApplications(entries({id, "other"}), desktop.folders),
                ElementsAre(Pair("com.valvesoftware.steam", id)));
  }
  EXPECT_THAT(knownApplications(entries({"com.discordapp.Discord", "discord"}), desktop.folders),
              ElementsAre(Pair("com.hnc.Discord", "discord")));
  EXPECT_THAT(knownApplications(entries({"com.google.Chrome", "google-chrome"}), desktop.folders),
              ElementsAre())
      << "an entry's own id wins";
}

TEST(IdentifierTable, RolesGoToTheUsersChoiceThenToWhatTheDesktopBrings) {
  test::DesktopFolders desktop;
  const auto installed =
      entries({"org.gnome.Nautilus", "org.kde.dolphin", "thunar", "org.kde.konsole", "foot",
               "org.gnome.Settings", "systemsettings"});
  desktop.folders.currentDesktop = "ubuntu:GNOME";
  EXPECT_THAT(knownApplications(installed, desktop.folders),
              ElementsAre(Pair("com.apple.Terminal", "org.kde.konsole"),
                          Pair("com.apple.finder", "org.gnome.Nautilus"),
                          Pair("com.apple.systempreferences", "org.gnome.Settings")));
  desktop.folders.currentDesktop = "KDE";
  EXPECT_THAT(knownApplications(installed, desktop.folders),
              ElementsAre(Pair("com.apple.Terminal", "org.kde.konsole"),
                          Pair("com.apple.finder", "org.kde.dolphin"),
                          Pair("com.apple.systempreferences", "systemsettings")));
  desktop.root.write("system/applications/mimeinfo.cache",
                     "[MIME Cache]\ninode/directory=org.kde.dolphin.desktop;\n");
  desktop.root.write("home/config/mimeapps.list",
                     "[Default Applications]\ninode/directory=gone.desktop;thunar.desktop;\n");
  desktop.root.write("home/config/kde-xdg-terminals.list", "# mine\nfoot.desktop:new-window\n");
  EXPECT_THAT(knownApplications(installed, desktop.folders),
              ElementsAre(Pair("com.apple.Terminal", "foot"), Pair("com.apple.finder", "thunar"),
                          Pair("com.apple.systempreferences", "systemsettings")));
}

TEST(InstalledApplications, AnApplicationHasOneIdentifierAndIsFoundUnderItsEntrysToo) {
  const InstalledApplications installed(entries({"steam", "xterm"}),
                                        {{"com.valvesoftware.steam", "steam"}});
  const auto* steam = installed.withBundleId("com.valvesoftware.steam");
  ASSERT_NE(steam, nullptr);
  EXPECT_EQ(installed.withBundleId("steam"), steam);
  EXPECT_EQ(installed.bundleIdOf(*steam), "com.valvesoftware.steam");
  EXPECT_EQ(installed.bundleIdOf(*installed.withBundleId("xterm")), "xterm");
  EXPECT_EQ(installed.withBundleId("com.hnc.Discord"), nullptr);
}

}  // namespace
}  // namespace glintboard
