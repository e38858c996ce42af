#include "platform/linux/window_matcher.h"

#include <gtest/gtest.h>

namespace glintboard {
namespace {

TEST(WindowMatcher, KnowsAWindowsApplicationByItsNamesAndItsProcess) {
  std::vector<DesktopEntry> entries;
  const auto add = [&](const char* id, const char* windowClass, std::vector<std::string> command,
                       bool noDisplay = false) {
    DesktopEntry entry;
    entry.id = id;
    entry.startupWmClass = windowClass;
    entry.command = std::move(command);
    entry.noDisplay = noDisplay;
    entries.push_back(std::move(entry));
  };
  add("a-hidden-handler", "Twin", {"twin"}, true);
  add("browser", "", {"browser"});
  add("chromium", "Chromium", {"chromium"});
  add("chromium-app-1", "crx_abc", {"chromium", "--app-id=abc"});
  add("debian-term", "", {"/usr/bin/term"});
  add("htop", "", {"/usr/bin/term", "-e", "htop"});
  add("org.test.Browser", "browser", {"flatpak", "run", "org.test.Browser"});
  add("org.test.Editor", "", {"editor"});
  add("player_player", "", {"/snap/bin/player"});
  add("twin-one", "Twin", {"twin", "--one"});
  add("twin-two", "Twin", {"twin", "--two"});
  add("viewer", "", {"viewer"});
  const WindowMatcher matcher(
      std::make_shared<const InstalledApplications>(std::move(entries), KnownApplications{}));

  const struct {
    const char* what;
    WindowIdentity window;
    std::set<std::string> ofProcess;
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

}  // namespace
}  // namespace glintboard
