// SPDX-License-Identifier: MIT
// Following and focusing windows, on both window systems.
#include <gmock/gmock.h>

#include "tests/platform/applications_test.h"
#include "tests/platform/wayland_compositor.h"
#include "tests/platform/x_server.h"
#include "tests/support/session_bus.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Command = std::vector<std::string>;
using testing::HasSubstr;

constexpr const char* calculator = "org.test.XCalc";

// Runs xdotool and returns what it prints, without line breaks.
std::string xdotool(const std::string& command) {
  return test::outputOf("timeout 5 xdotool " + command + " 2>/dev/null | tr -d '\n'");
}

std::string windowOf(const std::string& windowClass) {
  return xdotool("search --onlyvisible --class '^" + windowClass + "$'");
}

struct X11 {
  static constexpr const char* waysToHide[] = {
      "xdotool getactivewindow windowminimize --sync %1",
      "xdotool getactivewindow set_desktop_for_window %1 2"};

  Displays displays() const { return {.x11 = server.display()}; }
  static Command program(const std::string& name) { return {name == "XCalc" ? "xcalc" : "xterm"}; }
  static std::string focused() {
    return test::outputOf(
        "xprop -id $(xdotool getactivewindow) WM_CLASS 2>&1 | cut -d'\"' -f4 | tr -d '\n'");
  }
  // The $DESKTOP_STARTUP_ID|$XDG_ACTIVATION_TOKEN of a launched program.
  static auto launchVariables() { return testing::ContainsRegex("_TIME[0-9]+\\|\n"); }
  static auto platformData() { return testing::ContainsRegex("'desktop-startup-id': '.*_TIME"); }

  test::XServer server;
};

struct Wayland {
  static constexpr const char* waysToHide[] = {"swaymsg move scratchpad", "swaymsg workspace 2"};

  Displays displays() const { return {.wayland = server.socket()}; }
  static Command program(const std::string& name) {
    return {"foot", "--app-id=" + name, "sleep", "60"};
  }
  static std::string focused() {
    return test::outputOf(
        "timeout 5 swaymsg -t get_tree | python3 -c 'import json, sys; json.load(sys.stdin, "
        "object_hook=lambda node: print(node.get(\"focused\") and node.get(\"app_id\") or \"\", "
        "end=\"\"))'");
  }
  static auto launchVariables() { return testing::ContainsRegex("\\|.{8,}\n"); }
  static auto platformData() { return testing::ContainsRegex("'activation-token': '.{8,}'"); }

  test::WaylandCompositor server;
};

template <class System>
class Windows : public test::ApplicationsTest {
 protected:
  Windows() {
    desktop_.entry("system/applications/org.test.XCalc.desktop", "Exec=false\n");
    desktop_.entry("system/applications/terminal.desktop", "Exec=false\nStartupWMClass=XTerm\n");
    ::unsetenv("DESKTOP_STARTUP_ID");
  }
  void start() { ApplicationsTest::start(system_.displays()); }
  // Waits until the agent reports the state that the desktop shows.
  bool follows(const std::string& bundleId, bool running) {
    return becomesRunning(bundleId, running, test::slowdown * 1s);
  }
  // Starts XCalc or XTerm and waits until it has the focus and the agent has seen its window.
  std::unique_ptr<test::ChildProcess> show(const std::string& name) {
    auto process = std::make_unique<test::ChildProcess>(System::program(name));
    EXPECT_TRUE(becomesRunning(name == "XCalc" ? calculator : "terminal", true));
    EXPECT_TRUE(test::eventually([&] { return System::focused() == name; }));
    return process;
  }

  System system_;
};

using Systems = testing::Types<X11, Wayland>;
TYPED_TEST_SUITE(Windows, Systems);

TYPED_TEST(Windows, AnApplicationRunsWhileItHasAWindow) {
  // A program that no other test runs, because its process is matched too.
  auto command = TypeParam::program("XTerm");
  const auto copy = this->desktop_.root / "terminal";
  std::filesystem::copy_file("/usr/bin/" + command.front(), copy);
  command.front() = copy;
  this->desktop_.entry("system/applications/terminal.desktop",
                       "Exec=" + copy.string() + "\nStartupWMClass=XTerm\n");
  auto before = std::make_unique<test::ChildProcess>(command);
  ASSERT_TRUE(test::eventually([] { return TypeParam::focused() == "XTerm"; }));
  this->start();
  this->applications_->watchRunningApplications(true);
  EXPECT_TRUE(this->follows("terminal", true)) << "its window was there first";
  EXPECT_FALSE(this->workspace_.isRunning(calculator));
  const test::ChildProcess later(TypeParam::program("XCalc"));
  ASSERT_TRUE(test::eventually([] { return TypeParam::focused() == "XCalc"; }));
  EXPECT_TRUE(this->follows(calculator, true));
  before->end();
  EXPECT_TRUE(this->follows("terminal", false));
  EXPECT_TRUE(this->workspace_.isRunning(calculator));
}

TYPED_TEST(Windows, FocusReachesWindowsBehindOthersAndHiddenOnes) {
  this->start();
  const auto process = this->show("XCalc");
  const auto terminal = this->show("XTerm");
  const auto isFocused = [] { return TypeParam::focused() == "XCalc"; };
  EXPECT_TRUE(this->activate(calculator));
  EXPECT_TRUE(test::eventually(isFocused));
  for (const std::string hide : TypeParam::waysToHide) {
    test::outputOf("timeout 5 " + hide + " 2>&1");
    EXPECT_TRUE(test::eventually([&] { return !isFocused(); })) << hide;
    EXPECT_TRUE(this->workspace_.isRunning(calculator));
    EXPECT_TRUE(this->activate(calculator));
    EXPECT_TRUE(test::eventually(isFocused)) << hide;
  }
}

TYPED_TEST(Windows, FollowAServerThatDiedAndCameBack) {
  this->start();
  const auto before = this->show("XCalc");
  this->system_.server.replace();
  EXPECT_TRUE(this->follows(calculator, false));
  const auto after = this->show("XCalc");
  EXPECT_TRUE(this->activate(calculator));
}

TYPED_TEST(Windows, OfAServerThatHangsHoldUpNobody) {
  this->start();
  const auto process = this->show("XCalc");
  this->system_.server.process().signal(SIGSTOP);
  for (const auto limit : {2000ms, 100ms}) {  // the second time it is known to hang
    const auto before = Clock::now();
    EXPECT_TRUE(this->workspace_.isRunning(calculator));
    EXPECT_FALSE(this->activate(calculator));
    EXPECT_LT(Clock::now() - before, test::slowdown * limit);
  }
  // Connecting has a timeout too.
  LinuxApplications other(*this->executors_, this->desktop_.folders, this->system_.displays());
  std::this_thread::sleep_for(2500ms);
  this->system_.server.process().signal(SIGCONT);
  EXPECT_TRUE(test::eventually([&] { return this->activate(calculator); }, test::slowdown * 2s));
  EXPECT_TRUE(test::eventually([&] { return other.workspaceClient().isRunning(calculator); },
                               test::slowdown * 5s));
}

TYPED_TEST(Windows, ALaunchedProgramIsToldThatTheUserAskedForIt) {
  this->desktop_.scripted(
      "app", this->desktop_.report("seen", "echo \"$DESKTOP_STARTUP_ID|$XDG_ACTIVATION_TOKEN\""));
  const test::SessionBus bus;
  const auto log = this->desktop_.root / "log";
  this->desktop_.entry("system/applications/org.test.BusApp.desktop",
                       "DBusActivatable=true\nExec=" + bus.install("org.test.BusApp", log) + "\n");
  ::setenv("DESKTOP_STARTUP_ID", "of-the-agent", 1);
  this->start();
  const auto process = this->show("XCalc");
  this->open("app");
  const auto seen = this->desktop_.reported("seen");
  EXPECT_THAT(seen, TypeParam::launchVariables());
  EXPECT_THAT(seen, testing::Not(HasSubstr("of-the-agent")));
  this->open("org.test.BusApp");
  EXPECT_THAT(readWholeFile(log), TypeParam::platformData());
}

using X11Windows = Windows<X11>;

TEST_F(X11Windows, AllComeForwardAndTheOneUsedLastIsFocused) {
  start();
  const auto first = show("XCalc");
  const auto used = windowOf("XCalc");
  const test::ChildProcess second(X11::program("XCalc"));
  ASSERT_TRUE(test::eventually([&] { return windowOf("XCalc").size() > used.size(); }));
  xdotool("windowactivate --sync " + used);
  const auto terminal = show("XTerm");
  EXPECT_TRUE(activate(calculator));
  EXPECT_EQ(xdotool("getactivewindow"), used);
  const auto lowest = [] {
    const auto list = test::outputOf("xprop -root _NET_CLIENT_LIST_STACKING");
    return std::stoul(list.substr(list.find("0x")), nullptr, 16);
  };
  EXPECT_TRUE(test::eventually([&] { return lowest() == std::stoul(windowOf("XTerm")); },
                               test::slowdown * 2s));
}

TEST_F(X11Windows, SurviveTheirManagersRestart) {
  start();
  const auto process = show("XCalc");
  const auto terminal = show("XTerm");
  system_.server.stopManager();
  for (const auto end = Clock::now() + 300ms; Clock::now() < end;) {
    ASSERT_TRUE(workspace_.isRunning(calculator)) << "its window is still there";
    std::this_thread::sleep_for(5ms);
  }
  EXPECT_FALSE(activate(calculator)) << "nobody can";
  system_.server.startManager();
  EXPECT_TRUE(follows(calculator, true));
  xdotool("windowactivate --sync " + windowOf("XTerm"));
  EXPECT_TRUE(activate(calculator));
  EXPECT_EQ(X11::focused(), "XCalc");
  process->end();
  EXPECT_TRUE(follows(calculator, false));
}

TEST_F(X11Windows, WithDamagedPropertiesDoNoHarm) {
  start();
  const auto process = show("XCalc");
  const auto damage = [](const std::string& arguments) {
    EXPECT_EQ(test::outputOf("xprop " + arguments + " 2>&1"), "");
  };
  const auto window = "-id " + windowOf("XCalc");
  damage(window + " -f _NET_WM_PID 8s -set _NET_WM_PID text");
  damage(window + " -f _NET_WM_WINDOW_TYPE 16c -set _NET_WM_WINDOW_TYPE 7");
  damage(window + " -f _GTK_APPLICATION_ID 32c -set _GTK_APPLICATION_ID 7");
  damage(window + " -f WM_CLASS 8s -set WM_CLASS one-part");
  EXPECT_TRUE(follows(calculator, false)) << "nothing names it any more";
  damage(window + " -f _NET_WM_PID 32c -set _NET_WM_PID 4294967295");
  damage(window + " -f WM_CLASS 32c -set WM_CLASS 0");
  damage(window + " -f _GTK_APPLICATION_ID 8s -set _GTK_APPLICATION_ID org.test.XCalc");
  EXPECT_TRUE(follows(calculator, true));
  damage("-root -f _NET_SUPPORTING_WM_CHECK 8s -set _NET_SUPPORTING_WM_CHECK text");
  damage("-root -f _NET_ACTIVE_WINDOW 8s -set _NET_ACTIVE_WINDOW text");
  damage("-root -f _NET_CLIENT_LIST 32c -set _NET_CLIENT_LIST 0,1,4294967295");
  const test::ChildProcess terminal(X11::program("XTerm"));
  EXPECT_TRUE(becomesRunning("terminal", true));
  EXPECT_TRUE(workspace_.isRunning(calculator));
  EXPECT_FALSE(activate(calculator)) << "no window manager to be seen";
}

using WithoutWaylandsList = test::ApplicationsTest;

TEST_F(WithoutWaylandsList, X11TellsOfItsWindowsAndProcessesOfTheRest) {
  desktop_.entry("system/applications/xcalc.desktop", "Exec=false\n");
  // A copy that no other test runs.
  const auto program = desktop_.root / "painter";
  std::filesystem::copy_file("/usr/bin/weston-simple-shm", program);
  desktop_.entry("system/applications/painter.desktop", "Exec=" + program.string() + "\n");
  for (const bool compositorIsThere : {false, true}) {
    std::optional<test::WaylandCompositor> compositor;
    if (compositorIsThere) {
      compositor.emplace("weston");
    }
    const test::XServer server;
    applications_.reset();
    start({.wayland = compositor ? compositor->socket() : "/nonexistent", .x11 = server.display()});
    const test::ChildProcess process({"xcalc"});
    ASSERT_TRUE(becomesRunning("xcalc", true));
    EXPECT_TRUE(activate("xcalc"));
    if (compositor) {
      const test::ChildProcess painter({program.string()});
      applications_->watchRunningApplications(true);
      ASSERT_TRUE(becomesRunning("painter", true));
      const auto before = Clock::now();
      EXPECT_FALSE(activate("painter")) << "nobody can bring it forward";
      EXPECT_LT(Clock::now() - before, test::slowdown * 500ms);
      compositor->process().signal(SIGKILL);
      EXPECT_TRUE(becomesRunning("painter", false));
      EXPECT_TRUE(activate("xcalc"));
    }
    applications_.reset();
  }
}

}  // namespace
}  // namespace glintboard
