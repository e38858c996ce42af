#include "platform/linux/linux_applications.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <csignal>

#include "platform/atomic_file.h"
#include "platform/file_descriptor.h"
#include "platform/linux/application_launcher.h"
#include "tests/platform/desktop_folders.h"
#include "tests/support/await.h"
#include "tests/support/session_bus.h"

namespace glintboard {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

std::size_t openDescriptors() {
  return static_cast<std::size_t>(
      std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}));
}

class LinuxApplicationsTest : public testing::Test {
 protected:
  LinuxApplicationsTest() { ::setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent", 1); }

  void start() {
    executors_.emplace();
    applications_.emplace(*executors_, desktop_.folders);
    workspace_ = applications_->workspaceClient();
  }
  void open(const std::string& bundleId) {
    const auto location = workspace_.urlForApplication(bundleId);
    ASSERT_TRUE(location.has_value());
    EXPECT_TRUE(test::await(executors_->service(), workspace_.openApplication(*location)));
  }
  std::string failureOfOpening(const std::string& bundleId) {
    try {
      test::await(executors_->service(),
                  workspace_.openApplication(*workspace_.urlForApplication(bundleId)));
      return "it started";
    } catch (const std::runtime_error& error) {
      return error.what();
    }
  }
  bool activate(const std::string& bundleId) {
    return test::await(executors_->service(),
                       workspace_.runningApplication(bundleId).value().activate());
  }
  bool becomesRunning(const std::string& bundleId, bool running) {
    return test::eventually([&] { return workspace_.isRunning(bundleId) == running; });
  }
  // The number that a launched script wrote once it was there.
  pid_t numberIn(const std::string& file) {
    EXPECT_TRUE(test::eventually([&] { return std::filesystem::exists(desktop_.root / file); }));
    return std::stoi(readWholeFile(desktop_.root / file));
  }

  test::DesktopFolders desktop_;
  std::optional<Executors> executors_;
  std::optional<LinuxApplications> applications_;
  WorkspaceClient workspace_;
};

TEST_F(LinuxApplicationsTest, ALaunchedProgramInheritsNothingAndIsRunningUntilItEnds) {
  const auto report = (desktop_.root / "report").string();
  const auto program = desktop_.program(
      "bin/app", "#!/bin/sh\n(ls -l /proc/$$/fd; cat /proc/$$/status; cat /proc/$$/stat) >" +
                     report + ".new\nmv " + report + ".new " + report + "\nwhile [ ! -e " + report +
                     ".stop ]; do sleep 0.02; done\n");
  desktop_.entry("system/applications/app.desktop", "Exec=" + program.string() + "\n");
  const FileDescriptor inheritable(::open(desktop_.root.write("leak", "").c_str(), O_RDONLY));
  ::signal(SIGUSR2, SIG_IGN);
  sigset_t blocked;
  ::sigemptyset(&blocked);
  ::sigaddset(&blocked, SIGUSR1);
  ::pthread_sigmask(SIG_BLOCK, &blocked, nullptr);
  start();
  EXPECT_FALSE(workspace_.isRunning("app"));
  open("app");
  EXPECT_TRUE(workspace_.isRunning("app"));
  ASSERT_TRUE(test::eventually([&] { return std::filesystem::exists(report); }));
  const auto seen = readWholeFile(report);
  EXPECT_THAT(
      seen, AllOf(HasSubstr("0 -> /dev/null"), HasSubstr("1 -> /dev/null"),
                  HasSubstr("2 -> /dev/null"), Not(HasSubstr("leak")),
                  HasSubstr("SigBlk:\t0000000000000000"), HasSubstr("SigIgn:\t0000000000000000")));
  EXPECT_TRUE(workspace_.isRunning("app"));
  EXPECT_FALSE(activate("app")) << "nothing can bring it forward";
  desktop_.root.write("report.stop", "");
  EXPECT_TRUE(becomesRunning("app", false));
  EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1) << "a child was left";
  const auto descriptors = openDescriptors();
  for (int again = 0; again < 3; ++again) {
    open("app");
  }
  EXPECT_TRUE(becomesRunning("app", false));
  EXPECT_TRUE(test::eventually([&] { return openDescriptors() <= descriptors; }));
}

TEST_F(LinuxApplicationsTest, AnApplicationThatItsWrapperLeftBehindIsStillRunning) {
  const auto pidFile = (desktop_.root / "pid").string();
  const auto program =
      desktop_.program("bin/wrapper", "#!/bin/sh\nsleep 60 &\necho $! >" + pidFile + ".new; mv " +
                                          pidFile + ".new " + pidFile + "\n");
  desktop_.entry("system/applications/app.desktop", "Exec=" + program.string() + "\n");
  start();
  open("app");
  const pid_t left = numberIn("pid");
  std::this_thread::sleep_for(std::chrono::milliseconds(200));
  EXPECT_TRUE(workspace_.isRunning("app"));
  ::kill(left, SIGKILL);
  EXPECT_TRUE(becomesRunning("app", false));
}

TEST_F(LinuxApplicationsTest, FailuresNameTheApplicationAndTheReason) {
  desktop_.entry("system/applications/Gone.desktop", "Exec=no-such-program %U\n");
  desktop_.entry("system/applications/Lost.desktop", "Exec=true\nPath=/no/such/folder\n");
  start();
  EXPECT_EQ(failureOfOpening("Gone"),
            "Gone could not be started: the program \"no-such-program\" is not installed");
  EXPECT_THAT(failureOfOpening("Lost"),
              AllOf(HasSubstr("Lost could not be started: "), HasSubstr("/no/such/folder")));
  EXPECT_FALSE(workspace_.isRunning("Gone"));
}

TEST_F(LinuxApplicationsTest, FindsWhatOthersStartedWhileItIsToldToWatch) {
  const auto program = desktop_.root / "bin/player";
  std::filesystem::create_directories(program.parent_path());
  std::filesystem::copy_file("/bin/sleep", program);
  desktop_.entry("system/applications/player.desktop", "Exec=" + program.string() + " 7\n");
  std::optional<test::ChildProcess> process(std::in_place,
                                            std::vector<std::string>{program.string(), "60"});
  start();
  EXPECT_FALSE(workspace_.isRunning("player"));
  applications_->watchRunningApplications(true);
  EXPECT_TRUE(becomesRunning("player", true));
  process.reset();
  EXPECT_TRUE(becomesRunning("player", false));
  process.emplace(std::vector<std::string>{program.string(), "60"});
  EXPECT_TRUE(becomesRunning("player", true));
  applications_->watchRunningApplications(false);
  EXPECT_TRUE(becomesRunning("player", false)) << "nobody would notice its end";
}

TEST_F(LinuxApplicationsTest, StartsAndActivatesOverTheBusWhatAsksForIt) {
  const test::SessionBus bus;
  const auto log = desktop_.root / "log";
  const auto service = desktop_.program("bin/service", R"(#!/usr/bin/python3 -E
import os, sys
from gi.repository import Gio, GLib
xml = """<node><interface name='org.freedesktop.Application'>
<method name='Activate'><arg type='a{sv}' direction='in'/></method></interface></node>"""
def call(connection, sender, path, interface, method, parameters, invocation):
    with open(sys.argv[1], 'a') as log:
        log.write(f'{method} {path}\n')
    invocation.return_value(None)
def acquired(connection, name):
    interface = Gio.DBusNodeInfo.new_for_xml(xml).interfaces[0]
    connection.register_object('/org/test/Bus_App', interface, call, None, None)
Gio.bus_own_name(Gio.BusType.SESSION, 'org.test.Bus-App', 0, acquired, None, None)
GLib.MainLoop().run()
)");
  const auto command = service.string() + " " + log.string();
  bus.folder().write("services/org.test.Bus-App.service",
                     "[D-BUS Service]\nName=org.test.Bus-App\nExec=" + command + "\n");
  desktop_.entry("system/applications/org.test.Bus-App.desktop",
                 "DBusActivatable=true\nExec=" + command + "\n");
  desktop_.entry("system/applications/org.test.Nobody.desktop",
                 "DBusActivatable=true\nExec=true\n");
  start();
  open("org.test.Bus-App");
  EXPECT_EQ(readWholeFile(log), "Activate /org/test/Bus_App\n");
  applications_->watchRunningApplications(true);
  ASSERT_TRUE(becomesRunning("org.test.Bus-App", true)) << "the service's process is its own";
  EXPECT_TRUE(activate("org.test.Bus-App"));
  EXPECT_EQ(readWholeFile(log), "Activate /org/test/Bus_App\nActivate /org/test/Bus_App\n");
  EXPECT_THAT(failureOfOpening("org.test.Nobody"),
              HasSubstr("org.test.Nobody could not be started: "));
}

TEST_F(LinuxApplicationsTest, MayBeDestroyedWhileItsWorkIsUnderWay) {
  desktop_.entry("system/applications/app.desktop", "Exec=sleep 0.3\n");
  start();
  open("app");
  applications_->watchRunningApplications(true);
  desktop_.entry("system/applications/other.desktop", "Exec=true\n");
  std::this_thread::sleep_for(std::chrono::milliseconds(100));
  applications_.reset();
  std::this_thread::sleep_for(std::chrono::milliseconds(400));
  EXPECT_TRUE(workspace_.isInstalled("app")) << "a client answers from what was known last";
  workspace_ = {};
  executors_.reset();
}

TEST_F(LinuxApplicationsTest, ABusThatNeverAnswersHoldsAnActivationNoLongerThanItsDeadline) {
  const FileDescriptor silent(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
  ASSERT_TRUE(silent);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  const auto path = (desktop_.root / "silent").string();
  path.copy(address.sun_path, sizeof address.sun_path - 1);
  ASSERT_EQ(::bind(silent.get(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
  ASSERT_EQ(::listen(silent.get(), 5), 0);
  ::setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + path).c_str(), 1);
  const auto entry =
      desktop_.entry("system/applications/org.test.App.desktop", "DBusActivatable=true\n");
  const auto before = std::chrono::steady_clock::now();
  EXPECT_FALSE(activateOverDBus(readDesktopEntry(entry, "org.test.App").value(), {},
                                std::chrono::milliseconds(200)));
  EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(2));
}

}  // namespace
}  // namespace glintboard
