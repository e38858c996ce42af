#include <gtest/gtest.h>

#include "platform/atomic_file.h"
#include "platform/linux/linux_applications.h"
#include "tests/platform/desktop_folders.h"
#include "tests/platform/wayland_compositor.h"
#include "tests/platform/window_latency.h"
#include "tests/platform/x_server.h"
#include "tests/support/await.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

void sway(const std::string& command) {
  test::outputOf("timeout 5 swaymsg '" + command + "' 2>&1");
}

// The app_id of the focused window.
std::string focused() {
  return test::outputOf(
      "timeout 5 swaymsg -t get_tree | python3 -c '\n"
      "import json, sys\n"
      "def look(node):\n"
      "    if node.get(\"focused\") and node.get(\"app_id\"): print(node[\"app_id\"], end=\"\")\n"
      "    for each in node[\"nodes\"] + node[\"floating_nodes\"]: look(each)\n"
      "look(json.load(sys.stdin))'");
}

class WaylandWindowsTest : public testing::Test {
 protected:
  WaylandWindowsTest() {
    ::setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent", 1);
    desktop_.entry("system/applications/org.test.Notes.desktop", "Exec=false\n");
    desktop_.entry("system/applications/terminal.desktop", "Exec=false\nStartupWMClass=Terminal\n");
  }
  void start() {
    applications_.emplace(executors_, desktop_.folders, Displays{.wayland = compositor_.socket()});
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
  std::unique_ptr<test::ChildProcess> show(const std::string& applicationId,
                                           const std::string& bundleId) {
    auto process = std::make_unique<test::ChildProcess>(
        std::vector<std::string>{"foot", "--app-id=" + applicationId, "sleep", "60"});
    EXPECT_TRUE(becomesRunning(bundleId, true, 10s)) << applicationId;
    return process;
  }

  test::WaylandCompositor compositor_;
  test::DesktopFolders desktop_;
  Executors executors_;
  std::optional<LinuxApplications> applications_;
  WorkspaceClient workspace_;
};

TEST_F(WaylandWindowsTest, AnApplicationRunsWhileItHasAWindowAndFocusReachesIt) {
  start();
  const auto notes = show("notes", "org.test.Notes");
  sway("workspace 2");
  const auto terminal = show("terminal", "terminal");
  EXPECT_EQ(focused(), "terminal");
  EXPECT_TRUE(workspace_.isRunning("org.test.Notes")) << "on the other workspace";
  EXPECT_TRUE(activate("org.test.Notes"));
  EXPECT_EQ(focused(), "notes");
  EXPECT_TRUE(activate("terminal"));
  EXPECT_EQ(focused(), "terminal");
  sway("move scratchpad");
  EXPECT_TRUE(activate("terminal"));
  EXPECT_EQ(focused(), "terminal");
  notes->end();
  EXPECT_TRUE(becomesRunning("org.test.Notes", false));
  EXPECT_TRUE(workspace_.isRunning("terminal"));
}

TEST_F(WaylandWindowsTest, AWindowIsKnownWithin100MillisecondsOfOpeningAndClosing) {
  start();
  const auto [opening, closing] = test::medianLags(
      [] {
        return std::make_unique<test::ChildProcess>(
            std::vector<std::string>{"foot", "--app-id=notes", "sleep", "60"});
      },
      [] { return test::outputOf("swaymsg -t get_tree").find("\"notes\"") != std::string::npos; },
      [&] { return workspace_.isRunning("org.test.Notes"); });
  std::cout << "opening " << opening.count() << " ms, closing " << closing.count() << " ms\n";
  EXPECT_LT(opening, 100ms);
  EXPECT_LT(closing, 100ms);
}

TEST_F(WaylandWindowsTest, FollowsACompositorThatDiedAndCameBack) {
  start();
  const auto before = show("notes", "org.test.Notes");
  compositor_.replace();
  EXPECT_TRUE(becomesRunning("org.test.Notes", false));
  const auto after = show("notes", "org.test.Notes");
  EXPECT_TRUE(activate("org.test.Notes"));
}

TEST_F(WaylandWindowsTest, ACompositorThatHangsHoldsUpNobody) {
  start();
  const auto notes = show("notes", "org.test.Notes");
  compositor_.process().signal(SIGSTOP);
  const auto timed = [&] {
    const auto before = Clock::now();
    EXPECT_TRUE(workspace_.isRunning("org.test.Notes"));
    EXPECT_FALSE(activate("org.test.Notes"));
    return Clock::now() - before;
  };
  EXPECT_LT(timed(), 2s);
  EXPECT_LT(timed(), 100ms) << "it is known to hang";
  compositor_.process().signal(SIGCONT);
  EXPECT_TRUE(test::eventually([&] { return activate("org.test.Notes"); }, 2s));
}

TEST_F(WaylandWindowsTest, ALaunchedProgramIsGivenAnActivationToken) {
  const auto report = (desktop_.root / "report").string();
  const auto program =
      desktop_.program("bin/app", "#!/bin/sh\necho \"$XDG_ACTIVATION_TOKEN\" >" + report +
                                      ".new\nmv " + report + ".new " + report + "\n");
  desktop_.entry("system/applications/app.desktop", "Exec=" + program.string() + "\n");
  start();
  show("notes", "org.test.Notes");
  test::await(executors_.service(),
              workspace_.openApplication(*workspace_.urlForApplication("app")));
  ASSERT_TRUE(test::eventually([&] { return std::filesystem::exists(report); }));
  EXPECT_GT(readWholeFile(report).size(), 8U);
}

TEST(WithoutWaylandsList, X11TellsOfItsWindowsAndProcessesOfTheRest) {
  ::setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent", 1);
  const test::DesktopFolders desktop;
  desktop.entry("system/applications/xcalc.desktop", "Exec=false\n");
  // A program that no other test runs.
  const auto program = desktop.root / "painter";
  std::filesystem::copy_file("/usr/bin/weston-simple-shm", program);
  desktop.entry("system/applications/painter.desktop", "Exec=" + program.string() + "\n");
  for (const bool compositorIsThere : {false, true}) {
    std::optional<test::WaylandCompositor> compositor;
    if (compositorIsThere) {
      compositor.emplace("weston");
    }
    const test::XServer server;
    Executors executors;
    LinuxApplications applications(
        executors, desktop.folders,
        Displays{.wayland = compositor ? compositor->socket() : "/nonexistent",
                 .x11 = server.display()});
    auto workspace = applications.workspaceClient();
    const auto activate = [&](const char* bundleId) {
      return test::await(executors.service(),
                         workspace.runningApplication(bundleId).value().activate());
    };
    const test::ChildProcess calculator({"xcalc"});
    ASSERT_TRUE(test::eventually([&] { return workspace.isRunning("xcalc"); }));
    EXPECT_TRUE(activate("xcalc"));
    if (compositor) {
      const test::ChildProcess painter({program.string()});
      applications.watchRunningApplications(true);
      ASSERT_TRUE(test::eventually([&] { return workspace.isRunning("painter"); }));
      const auto before = Clock::now();
      EXPECT_FALSE(activate("painter")) << "nobody can bring it forward";
      EXPECT_LT(Clock::now() - before, 500ms);
      compositor->process().signal(SIGKILL);
      EXPECT_TRUE(test::eventually([&] { return !workspace.isRunning("painter"); }));
      EXPECT_TRUE(activate("xcalc"));
    }
  }
}

}  // namespace
}  // namespace glintboard
