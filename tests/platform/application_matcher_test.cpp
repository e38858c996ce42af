#include "platform/linux/application_matcher.h"

#include <gmock/gmock.h>

#include "tests/platform/desktop_folders.h"

namespace glintboard {
namespace {

using Ids = std::set<std::string>;

TEST(ApplicationMatcher, AttributesAProcessByItsUnitAndByItsProgram) {
  const test::DesktopFolders desktop;
  const auto file = [&](const char* name) { return (desktop.root / name).string(); };
  for (const auto* name : {"bin/player", "bin/office", "bin/script", "bin/python3.11", "bin/env"}) {
    desktop.program(name, "");
  }
  std::filesystem::create_symlink("player", desktop.root / "bin/player-link");
  std::vector<DesktopEntry> entries;
  const auto add = [&](const char* id, std::vector<std::string> command) {
    DesktopEntry entry;
    entry.id = id;
    entry.command = std::move(command);
    entries.push_back(std::move(entry));
  };
  add("org.test.Player", {file("bin/player-link"), "--gui"});
  add("writer", {file("bin/office"), "--writer"});
  add("start-center", {file("bin/office")});
  add("script", {file("bin/env"), "MODE=x", file("bin/script")});
  add("python-app", {file("bin/python3.11"), "/opt/app.py"});
  add("python", {file("bin/python3.11")});
  add("gone", {"/no/such/program"});
  add("my-app", {});
  add("firefox_firefox", {});
  const ApplicationMatcher matcher(
      std::make_shared<const InstalledApplications>(std::move(entries), KnownApplications()));

  const struct {
    const char* what;
    std::string executable;
    std::vector<std::string> arguments;
    std::string unit;
    Ids expected;
  } cases[] = {
      {"a program of its own, whatever its arguments",
       file("bin/player"),
       {"player"},
       "",
       {"org.test.Player"}},
      {"the application with the longest match",
       file("bin/office"),
       {"office", "--x", "--writer"},
       "",
       {"writer"}},
      {"the one without arguments", file("bin/office"), {"office"}, "", {"start-center"}},
      {"a script", "/usr/bin/bash", {"bash", "-e", file("bin/script")}, "", {"script"}},
      {"an editor of the script", "/usr/bin/vim", {"vim", file("bin/script")}, "", {}},
      {"an interpreter with the application's argument",
       file("bin/python3.11"),
       {"python3", "-u", "/opt/app.py"},
       "",
       {"python-app"}},
      {"an interpreter with another", file("bin/python3.11"), {"python3", "/o.py"}, "", {}},
      {"no arguments at all", "/usr/bin/bash", {}, "", {}},
      {"GNOME", "/x", {}, "app-gnome-org.test.Player-1234.scope", {"org.test.Player"}},
      {"no launcher", "/x", {}, "app-org.test.Player-1a2b.scope", {"org.test.Player"}},
      {"escaped", "/x", {}, "app-gnome-my\\x2dapp-12.scope", {"my-app"}},
      {"KDE", "/x", {}, "app-org.test.Player@9f3c.service", {"org.test.Player"}},
      {"autostart", "/x", {}, "app-my\\x2dapp@autostart.service", {"my-app"}},
      {"Flatpak", "/x", {}, "app-flatpak-org.test.Player-77.scope", {"org.test.Player"}},
      {"bus", "/x", {}, "dbus-:1.2-org.test.Player@0.service", {"org.test.Player"}},
      {"Snap", "/x", {}, "snap.firefox.firefox-9a.scope", {"firefox_firefox"}},
      {"not installed", "/x", {}, "app-gnome-other-1.scope", {}},
      {"damaged", "/x", {}, "app-\\x2.scope", {}},
      {"started from the other's terminal",
       file("bin/player"),
       {"player"},
       "app-script-1.scope",
       {"org.test.Player", "script"}},
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

}  // namespace
}  // namespace glintboard
