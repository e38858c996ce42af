// SPDX-License-Identifier: MIT
// Which application a process, a window or a well-known identifier belongs to.
#include <gmock/gmock.h>

#include "platform/linux/applications/application_matcher.h"
#include "platform/linux/applications/identifier_table.h"
#include "platform/linux/windows/window_matcher.h"
#include "tests/platform/desktop_folders.h"

namespace glintboard {
namespace {

using testing::ElementsAre;
using testing::Pair;
using Words = std::vector<std::string>;
using Ids = std::set<std::string>;

DesktopEntry entry(const std::string& id, Words command = {}, const char* windowClass = "",
                   bool noDisplay = false) {
  DesktopEntry entry;
  entry.id = id;
  entry.path = "/apps/" + id + ".desktop";
  entry.command = std::move(command);
  entry.startupWmClass = windowClass;
  entry.noDisplay = noDisplay;
  return entry;
}

std::vector<DesktopEntry> entries(const Words& ids) {
  std::vector<DesktopEntry> made;
  for (const auto& id : ids) {
    made.push_back(entry(id));
  }
  return made;
}

std::shared_ptr<const InstalledApplications> installed(std::vector<DesktopEntry> entries) {
  return std::make_shared<const InstalledApplications>(std::move(entries), KnownApplications());
}

TEST(ApplicationMatcher, MatchesProcessesByUnitAndProgram) {
  const test::DesktopFolders desktop;
  const auto program = [&](const char* name) {
    return desktop.program(std::string("bin/") + name, "").string();
  };
  const auto player = program("player"), office = program("office"), script = program("script"),
             python = program("python3.11"), env = program("env");
  const auto link = (desktop.root / "bin/player-link").string();
  std::filesystem::create_symlink("player", link);
  const ApplicationMatcher matcher(
      installed({entry("org.test.Player", {link, "--gui"}), entry("writer", {office, "--writer"}),
                 entry("start-center", {office}), entry("script", {env, "MODE=x", script}),
                 entry("python-app", {python, "/opt/app.py"}), entry("python", {python}),
                 entry("gone", {"/no/such/program"}), entry("my-app"), entry("firefox_firefox"),
                 entry("a-b_c-d")}));
  const std::string uuid = "4706fe54-7802-4808-aa7e-ae8b567239e0";
  const struct {
    const char* what;
    std::string executable;
    Words arguments;
    std::string unit;
    Ids expected;
  } cases[] = {
      {"whatever the arguments", player, {"player"}, "", {"org.test.Player"}},
      {"the longest match", office, {"office", "--x", "--writer"}, "", {"writer"}},
      {"the one without arguments", office, {"office"}, "", {"start-center"}},
      {"a script", "/usr/bin/bash", {"bash", "-e", script}, "", {"script"}},
      {"an editor of the script", "/usr/bin/vim", {"vim", script}, "", {}},
      {"interpreted", python, {"python3", "-u", "/opt/app.py"}, "", {"python-app"}},
      {"an interpreter of another", python, {"python3", "/o.py"}, "", {}},
      {"no arguments at all", "/usr/bin/bash", {}, "", {}},
      {"GNOME", "/x", {}, "app-gnome-org.test.Player-1234.scope", {"org.test.Player"}},
      {"no launcher", "/x", {}, "app-org.test.Player-1a2b.scope", {"org.test.Player"}},
      {"escaped", "/x", {}, "app-gnome-my\\x2dapp-12.scope", {"my-app"}},
      {"KDE", "/x", {}, "app-org.test.Player@9f3c.service", {"org.test.Player"}},
      {"autostart", "/x", {}, "app-my\\x2dapp@autostart.service", {"my-app"}},
      {"Flatpak", "/x", {}, "app-flatpak-org.test.Player-77.scope", {"org.test.Player"}},
      {"bus", "/x", {}, "dbus-:1.2-org.test.Player@0.service", {"org.test.Player"}},
      {"Snap", "/x", {}, "snap.firefox.firefox-" + uuid + ".scope", {"firefox_firefox"}},
      {"Snap with dashes", "/x", {}, "snap.a-b.c-d." + uuid + ".scope", {"a-b_c-d"}},
      {"Snap's service", "/x", {}, "snap.firefox.firefox.service", {"firefox_firefox"}},
      {"damaged Snap", "/x", {}, "snap.firefox.firefox-9a.scope", {}},
      {"not installed", "/x", {}, "app-gnome-other-1.scope", {}},
      {"damaged", "/x", {}, "app-\\x2.scope", {}},
      {"from a terminal", player, {}, "app-script-1.scope", {"org.test.Player", "script"}},
  };
  for (const auto& each : cases) {
    Process process;
    process.executable = each.executable;
    process.arguments = each.arguments;
    process.controlGroups =
        "12:pids:/\n0::/user.slice/user@1000.service/app.slice/" + each.unit + "/inner\n";
    EXPECT_EQ(matcher.applicationsOf(process), each.expected) << each.what;
  }
}

TEST(WindowMatcher, MatchesWindowsByNamesAndProcess) {
  const WindowMatcher matcher(installed(
      {entry("a-hidden-handler", {"twin"}, "Twin", true), entry("browser", {"browser"}),
       entry("chromium", {"chromium"}, "Chromium"),
       entry("chromium-app-1", {"chromium", "--app-id=abc"}, "crx_abc"),
       entry("debian-term", {"/usr/bin/term"}), entry("htop", {"/usr/bin/term", "-e", "htop"}),
       entry("org.test.Browser", {"flatpak", "run", "org.test.Browser"}, "browser"),
       entry("org.test.Editor", {"editor"}), entry("player_player", {"/snap/bin/player"}),
       entry("twin-one", {"twin", "--one"}, "Twin"), entry("twin-two", {"twin", "--two"}, "Twin"),
       entry("viewer", {"viewer"})}));
  const struct {
    const char* what;
    WindowIdentity window;
    Ids ofProcess;
    const char* expected;
  } cases[] = {
      {"the toolkit's id", {"org.test.Editor", "Other", "other"}, {}, "org.test.Editor"},
      {"its id", {"", "viewer", "viewer"}, {}, "viewer"},
      {"its id in other letters", {"", "Viewer", ""}, {}, "viewer"},
      {"the end of a reverse-DNS id", {"", "Editor", "editor"}, {}, "org.test.Editor"},
      {"a reverse-DNS name for a plain id", {"org.upstream.Viewer", "", ""}, {}, "viewer"},
      {"a Snap", {"", "Player", "player"}, {}, "player_player"},
      {"its program", {"", "Term", "term"}, {}, "debian-term"},
      {"its stated class before another's id", {"", "browser", "Nav"}, {}, "org.test.Browser"},
      {"unless the process is that other's", {"", "browser", "Nav"}, {"browser"}, "browser"},
      {"the same class twice: what is offered, in order", {"", "Twin", "twin"}, {}, "twin-one"},
      {"the same class twice: the process's", {"", "Twin", "twin"}, {"twin-two"}, "twin-two"},
      {"the browser itself", {"", "Chromium", "chromium"}, {"chromium"}, "chromium"},
      {"a web application", {"", "Chromium", "crx_abc"}, {"chromium"}, "chromium-app-1"},
      {"no known name but a process", {"", "X", "x"}, {"viewer"}, "viewer"},
      {"a name against the process's", {"", "Editor", ""}, {"viewer"}, "org.test.Editor"},
      {"no known name, an unclear process", {"", "X", "x"}, {"viewer", "browser"}, ""},
      {"unknown", {"", "X", "x"}, {}, ""},
      {"nothing at all", {}, {}, ""},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(matcher.applicationOf(each.window, each.ofProcess), each.expected) << each.what;
  }
}

TEST(IdentifierTable, MapsKnownProgramsFromEveryPackaging) {
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

TEST(IdentifierTable, RolesPreferTheUsersChoiceThenTheDesktops) {
  test::DesktopFolders desktop;
  auto all = entries({"org.gnome.Nautilus", "org.kde.dolphin", "thunar", "org.kde.konsole", "foot",
                      "org.gnome.Settings", "systemsettings"});
  all.push_back(entry("best", {"/usr/bin/best-term"}));
  all.push_back(entry("best-top", {"best-term", "-e", "top"}));
  const auto roles = [&](const char* desktopNames) {
    desktop.folders.currentDesktop = desktopNames;
    const auto known = knownApplications(all, desktop.folders);
    return Words{known.at("com.apple.finder"), known.at("com.apple.Terminal"),
                 known.at("com.apple.systempreferences")};
  };
  desktop.root.write("system/applications/mimeinfo.cache",
                     "[MIME Cache]\ninode/directory=org.kde.dolphin.desktop;\n");
  desktop.root.write("etc/kde-mimeapps.list",
                     "[Default Applications]\ninode/directory=org.kde.dolphin.desktop;\n");
  EXPECT_THAT(roles("ubuntu:GNOME"),
              ElementsAre("org.gnome.Nautilus", "org.kde.konsole", "org.gnome.Settings"));
  EXPECT_THAT(roles("KDE"), ElementsAre("org.kde.dolphin", "org.kde.konsole", "systemsettings"));
  // Each desktop's own setting.
  desktop.root.write("home/config/kdeglobals", "[General]\nTerminalService=foot.desktop\n");
  desktop.root.write("home/config/xfce4/helpers.rc", "WebBrowser=x\nTerminalEmulator=best-term\n");
  EXPECT_THAT(roles("KDE"), ElementsAre("org.kde.dolphin", "foot", "systemsettings"));
  EXPECT_THAT(roles("XFCE"), ElementsAre("thunar", "best", "org.gnome.Settings"));
  // The user's choice for all desktops wins over the system's for this one.
  desktop.root.write("home/config/mimeapps.list",
                     "[Default Applications]\ninode/directory=gone.desktop;thunar.desktop;\n");
  desktop.root.write("home/config/kde-xdg-terminals.list",
                     "# mine\norg.kde.konsole.desktop:new-window\n");
  EXPECT_THAT(roles("KDE"), ElementsAre("thunar", "org.kde.konsole", "systemsettings"));
}

TEST(IdentifierTable, FallsBackToAProgramThatOpensFolders) {
  const test::DesktopFolders desktop;
  const auto manager = [&](const Words& ids) {
    return knownApplications(entries(ids), desktop.folders)["com.apple.finder"];
  };
  desktop.root.write("system/applications/mimeinfo.cache",
                     "[MIME Cache]\ninode/directory=player.desktop;files.desktop;\n");
  EXPECT_EQ(manager({"files", "player", "mine"}), "player");
  desktop.root.write("home/config/mimeapps.list",
                     "[Added Associations]\ninode/directory=mine.desktop;\n"
                     "[Removed Associations]\ninode/directory=player.desktop;\n");
  EXPECT_EQ(manager({"files", "player", "mine"}), "mine");
  EXPECT_EQ(manager({"files", "player"}), "files");
  EXPECT_EQ(manager({"player"}), "");
}

}  // namespace
}  // namespace glintboard
