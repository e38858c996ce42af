// SPDX-License-Identifier: MIT
// Measures the delay from a window's opening or closing until the agent's window list shows it, and
// the time to draw a deck's icons from a real theme. Starts its own X server and compositor.
#include <algorithm>
#include <cstdio>
#include <thread>

#include "platform/linux/linux_applications.h"
#include "tests/platform/desktop_folders.h"
#include "tests/platform/wayland_compositor.h"
#include "tests/platform/x_server.h"

namespace {

using namespace glintboard;
using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

// The time from when `shown` is true to when `known` is; polls both.
template <class Shown, class Known>
double lag(Shown shown, Known known) {
  Clock::time_point knownAt;
  std::thread watching([&] {
    test::eventually(known);
    knownAt = Clock::now();
  });
  test::eventually(shown);
  const auto shownAt = Clock::now();
  watching.join();
  return std::max(0.0, Milliseconds(knownAt - shownAt).count());
}

void measureWindows(const char* system, const Displays& displays,
                    const std::vector<std::string>& program, const std::string& question) {
  const test::DesktopFolders desktop;
  desktop.entry("system/applications/xcalc.desktop", "Exec=false\n");
  Executors executors;
  LinuxApplications applications(executors, desktop.folders, displays);
  const auto workspace = applications.workspaceClient();
  const auto shown = [&] { return !test::outputOf(question).empty(); };
  const auto known = [&] { return workspace.isRunning("xcalc"); };
  std::vector<double> opening;
  std::vector<double> closing;
  for (int i = 0; i < 11; ++i) {
    test::ChildProcess window(program);
    opening.push_back(lag(shown, known));
    window.signal(SIGKILL);
    closing.push_back(lag([&] { return !shown(); }, [&] { return !known(); }));
  }
  std::ranges::sort(opening);
  std::ranges::sort(closing);
  std::printf("%-8s opening: median %5.1f, worst %5.1f ms; closing: median %5.1f, worst %5.1f ms\n",
              system, opening[5], opening[10], closing[5], closing[10]);
}

void measureIcons() {
  test::DesktopFolders desktop;
  desktop.folders.dataDirs.push_back("/usr/share");
  desktop.root.write("home/config/gtk-3.0/settings.ini",
                     "[Settings]\ngtk-icon-theme-name=Adwaita\n");
  std::vector<ApplicationLocation> locations;
  for (const auto& file :
       std::filesystem::recursive_directory_iterator("/usr/share/icons/Adwaita/scalable")) {
    if (file.path().extension() == ".svg" && locations.size() < 24) {
      const auto name = file.path().stem().string();
      locations.push_back({desktop.entry("home/data/applications/app-" + name + ".desktop",
                                         "Exec=true\nIcon=" + name + "\n")});
    }
  }
  Executors executors;
  LinuxApplications applications(executors, desktop.folders);
  const auto icons = applications.iconClient();
  const auto before = Clock::now();
  const auto drawn = std::ranges::count_if(
      locations, [&](const auto& location) { return !icons.image(location, 128).isNull(); });
  std::printf("%td icons drawn in %.0f ms\n", drawn, Milliseconds(Clock::now() - before).count());
}

}  // namespace

int main() {
  {
    const test::XServer server;
    measureWindows("X11", {.x11 = server.display()}, {"xcalc"},
                   "xdotool search --onlyvisible --class XCalc 2>&1");
  }
  {
    const test::WaylandCompositor server;
    measureWindows("Wayland", {.wayland = server.socket()},
                   {"foot", "--app-id=xcalc", "sleep", "60"},
                   "swaymsg -t get_tree | grep '\"xcalc\"'");
  }
  measureIcons();
}
