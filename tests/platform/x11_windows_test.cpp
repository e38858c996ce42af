#include <gtest/gtest.h>

#include "platform/atomic_file.h"
#include "platform/linux/linux_applications.h"
#include "tests/platform/desktop_folders.h"
#include "tests/platform/window_latency.h"
#include "tests/platform/x_server.h"
#include "tests/support/await.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

bool contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

// Runs xdotool and returns what it prints, without the line break.
std::string xdotool(const std::string& command) {
  auto output = test::outputOf("timeout 5 xdotool " + command + " 2>/dev/null");
  while (!output.empty() && output.back() == '\n') {
    output.pop_back();
  }
  return output;
}

std::string windowOf(const std::string& windowClass) {
  return xdotool("search --onlyvisible --class '^" + windowClass + "$'");
}

std::string activeWindow() {
  return xdotool("getactivewindow");
}

class X11WindowsTest : public testing::Test {
 protected:
  X11WindowsTest() {
    ::setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent", 1);
    desktop_.entry("system/applications/org.test.XCalc.desktop", "Exec=xcalc\n");
    desktop_.entry("system/applications/terminal.desktop", "Exec=false\nStartupWMClass=XTerm\n");
  }
  void start() {
    applications_.emplace(executors_, desktop_.folders, Displays{.x11 = server_.display()});
    workspace_ = applications_->workspaceClient();
  }
  bool becomesRunning(const std::string& bundleId, bool running,
                      std::chrono::milliseconds limit = 1s) {
    return test::eventually([&] { return workspace_.isRunning(bundleId) == running; }, limit);
  }
  bool activate(const std::string& bundleId) {
    const auto running = workspace_.runningApplication(bundleId);
    return running && test::await(executors_.service(), running->activate());
  }
  // Starts a program and waits until the agent has seen its window.
  std::unique_ptr<test::ChildProcess> show(const std::string& program,
                                           const std::string& bundleId) {
    auto process = std::make_unique<test::ChildProcess>(std::vector<std::string>{program});
    EXPECT_TRUE(becomesRunning(bundleId, true, 10s)) << program;
    return process;
  }

  test::XServer server_;
  test::DesktopFolders desktop_;
  Executors executors_;
  std::optional<LinuxApplications> applications_;
  WorkspaceClient workspace_;
};

TEST_F(X11WindowsTest, AnApplicationRunsWhileItHasAWindow) {
  auto before = std::make_unique<test::ChildProcess>(std::vector<std::string>{"xterm"});
  ASSERT_TRUE(test::eventually([] { return !windowOf("XTerm").empty(); }));
  start();
  EXPECT_TRUE(becomesRunning("terminal", true)) << "its window was there first";
  EXPECT_FALSE(workspace_.isRunning("org.test.XCalc"));
  const test::ChildProcess calculator({"xcalc"});
  ASSERT_TRUE(test::eventually([] { return !windowOf("XCalc").empty(); }));
  EXPECT_TRUE(becomesRunning("org.test.XCalc", true));
  before->end();
  EXPECT_TRUE(becomesRunning("terminal", false));
  EXPECT_TRUE(workspace_.isRunning("org.test.XCalc"));
}

TEST_F(X11WindowsTest, AWindowIsKnownWithin100MillisecondsOfOpeningAndClosing) {
  start();
  const auto [opening, closing] = test::medianLags(
      [] { return std::make_unique<test::ChildProcess>(std::vector<std::string>{"xcalc"}); },
      [] { return contains(test::outputOf("xprop -root _NET_CLIENT_LIST"), "0x"); },
      [&] { return workspace_.isRunning("org.test.XCalc"); });
  std::cout << "opening " << opening.count() << " ms, closing " << closing.count() << " ms\n";
  EXPECT_LT(opening, 100ms);
  EXPECT_LT(closing, 100ms);
}

TEST_F(X11WindowsTest, FocusReachesMinimisedWindowsAndOtherDesktops) {
  start();
  const auto calculator = show("xcalc", "org.test.XCalc");
  const auto window = windowOf("XCalc");
  const auto terminal = show("xterm", "terminal");
  xdotool("windowactivate --sync " + windowOf("XTerm"));
  EXPECT_TRUE(activate("org.test.XCalc"));
  EXPECT_EQ(activeWindow(), window);

  xdotool("windowminimize --sync " + window);
  ASSERT_NE(activeWindow(), window);
  ASSERT_EQ(windowOf("XCalc"), "");
  EXPECT_TRUE(activate("org.test.XCalc"));
  EXPECT_EQ(activeWindow(), window);
  EXPECT_EQ(windowOf("XCalc"), window);

  xdotool("set_desktop_for_window " + window + " 2");
  xdotool("windowactivate --sync " + windowOf("XTerm"));
  EXPECT_TRUE(workspace_.isRunning("org.test.XCalc"));
  EXPECT_TRUE(activate("org.test.XCalc"));
  EXPECT_EQ(activeWindow(), window);
  EXPECT_EQ(xdotool("get_desktop"), "2");
}

TEST_F(X11WindowsTest, AllWindowsComeForwardAndTheOneUsedLastIsFocused) {
  start();
  const auto first = show("xcalc", "org.test.XCalc");
  const auto used = windowOf("XCalc");
  const test::ChildProcess second({"xcalc"});
  ASSERT_TRUE(test::eventually([&] { return windowOf("XCalc").size() > used.size(); }));
  xdotool("windowactivate --sync " + used);
  const auto terminal = show("xterm", "terminal");
  const auto terminalWindow = windowOf("XTerm");
  xdotool("windowactivate --sync " + terminalWindow);
  EXPECT_TRUE(activate("org.test.XCalc"));
  EXPECT_EQ(activeWindow(), used);
  const auto lowest = [] {
    const auto list = test::outputOf("xprop -root _NET_CLIENT_LIST_STACKING");
    return std::stoul(list.substr(list.find("0x")), nullptr, 16);
  };
  EXPECT_TRUE(test::eventually([&] { return lowest() == std::stoul(terminalWindow); }, 2s));
}

TEST_F(X11WindowsTest, SurvivesItsWindowManagersRestart) {
  start();
  const auto calculator = show("xcalc", "org.test.XCalc");
  const auto terminal = show("xterm", "terminal");
  server_.stopManager();
  for (const auto end = Clock::now() + 300ms; Clock::now() < end;) {
    ASSERT_TRUE(workspace_.isRunning("org.test.XCalc")) << "its window is still there";
    std::this_thread::sleep_for(5ms);
  }
  EXPECT_FALSE(activate("org.test.XCalc")) << "nobody can";
  server_.startManager();
  EXPECT_TRUE(becomesRunning("org.test.XCalc", true));
  xdotool("windowactivate --sync " + windowOf("XTerm"));
  EXPECT_TRUE(activate("org.test.XCalc"));
  EXPECT_EQ(activeWindow(), windowOf("XCalc"));
  calculator->end();
  EXPECT_TRUE(becomesRunning("org.test.XCalc", false));
}

TEST_F(X11WindowsTest, FollowsAServerThatDiedAndCameBack) {
  start();
  const auto before = show("xcalc", "org.test.XCalc");
  server_.replace();
  EXPECT_TRUE(becomesRunning("org.test.XCalc", false));
  const auto after = show("xcalc", "org.test.XCalc");
  EXPECT_TRUE(activate("org.test.XCalc"));
}

TEST_F(X11WindowsTest, AServerThatHangsHoldsUpNobody) {
  start();
  const auto calculator = show("xcalc", "org.test.XCalc");
  server_.process().signal(SIGSTOP);
  const auto timed = [&] {
    const auto before = Clock::now();
    EXPECT_TRUE(workspace_.isRunning("org.test.XCalc"));
    EXPECT_FALSE(activate("org.test.XCalc"));
    return Clock::now() - before;
  };
  EXPECT_LT(timed(), 2s);
  EXPECT_LT(timed(), 100ms) << "it is known to hang";
  // Connecting waits no longer.
  LinuxApplications other(executors_, desktop_.folders, Displays{.x11 = server_.display()});
  std::this_thread::sleep_for(2500ms);
  server_.process().signal(SIGCONT);
  EXPECT_TRUE(test::eventually([&] { return activate("org.test.XCalc"); }, 2s));
  EXPECT_TRUE(
      test::eventually([&] { return other.workspaceClient().isRunning("org.test.XCalc"); }, 5s));
}

TEST_F(X11WindowsTest, DamagedPropertiesDoNoHarm) {
  start();
  const auto calculator = show("xcalc", "org.test.XCalc");
  const auto damage = [](const std::string& arguments) {
    EXPECT_EQ(test::outputOf("xprop " + arguments + " 2>&1"), "");
  };
  const auto window = "-id " + windowOf("XCalc");
  damage(window + " -f _NET_WM_PID 8s -set _NET_WM_PID text");
  damage(window + " -f _NET_WM_WINDOW_TYPE 16c -set _NET_WM_WINDOW_TYPE 7");
  damage(window + " -f _GTK_APPLICATION_ID 32c -set _GTK_APPLICATION_ID 7");
  damage(window + " -f WM_CLASS 8s -set WM_CLASS one-part");
  EXPECT_TRUE(becomesRunning("org.test.XCalc", false)) << "nothing names it any more";
  damage(window + " -f _NET_WM_PID 32c -set _NET_WM_PID 4294967295");
  damage(window + " -f WM_CLASS 32c -set WM_CLASS 0");
  damage(window + " -f _GTK_APPLICATION_ID 8s -set _GTK_APPLICATION_ID org.test.XCalc");
  EXPECT_TRUE(becomesRunning("org.test.XCalc", true));
  damage("-root -f _NET_SUPPORTING_WM_CHECK 8s -set _NET_SUPPORTING_WM_CHECK text");
  damage("-root -f _NET_ACTIVE_WINDOW 8s -set _NET_ACTIVE_WINDOW text");
  damage("-root -f _NET_CLIENT_LIST 32c -set _NET_CLIENT_LIST 0,1,4294967295");
  const auto terminal = show("xterm", "terminal");
  EXPECT_TRUE(workspace_.isRunning("org.test.XCalc"));
  EXPECT_FALSE(activate("org.test.XCalc")) << "no window manager to be seen";
}

TEST_F(X11WindowsTest, ALaunchedProgramIsToldWhenTheUserAskedForIt) {
  const auto report = (desktop_.root / "report").string();
  const auto program = desktop_.program(
      "bin/app", "#!/bin/sh\necho \"$DESKTOP_STARTUP_ID|$XDG_ACTIVATION_TOKEN\" >" + report +
                     ".new\nmv " + report + ".new " + report + "\n");
  desktop_.entry("system/applications/app.desktop", "Exec=" + program.string() + "\n");
  ::setenv("DESKTOP_STARTUP_ID", "of-the-agent", 1);
  start();
  show("xcalc", "org.test.XCalc");
  test::await(executors_.service(),
              workspace_.openApplication(*workspace_.urlForApplication("app")));
  ::unsetenv("DESKTOP_STARTUP_ID");
  ASSERT_TRUE(test::eventually([&] { return std::filesystem::exists(report); }));
  const auto seen = readWholeFile(report);
  EXPECT_TRUE(contains(seen, "_TIME") && contains(seen, "|\n")) << seen;
}

}  // namespace
}  // namespace glintboard
