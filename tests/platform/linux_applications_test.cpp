// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <gmock/gmock.h>

#include <csignal>
#include <future>

#include "platform/file_descriptor.h"
#include "tests/platform/applications_test.h"
#include "tests/support/child_process.h"

namespace glintboard {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

using LinuxApplicationsTest = test::ApplicationsTest;

TEST_F(LinuxApplicationsTest, LaunchedProgramInheritsNothingAndRunsUntilItEnds) {
  desktop_.scripted("app", desktop_.report("seen", "ls -l /proc/$$/fd; cat /proc/$$/status") +
                               "\nwhile [ ! -e " + (desktop_.root / "stop").string() +
                               " ]; do sleep 0.02; done");
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
  const auto seen = desktop_.reported("seen");
  EXPECT_THAT(
      seen, AllOf(HasSubstr("0 -> /dev/null"), HasSubstr("1 -> /dev/null"),
                  HasSubstr("2 -> /dev/null"), Not(HasSubstr("leak")),
                  HasSubstr("SigBlk:\t0000000000000000"), HasSubstr("SigIgn:\t0000000000000000")));
  EXPECT_TRUE(workspace_.isRunning("app"));
  EXPECT_FALSE(activate("app")) << "it has no window";
  desktop_.root.write("stop", "");
  EXPECT_TRUE(becomesRunning("app", false));
  EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1) << "a child process was not reaped";
  const auto descriptors = test::openDescriptors();
  for (int again = 0; again < 3; ++again) {
    open("app");
  }
  EXPECT_TRUE(becomesRunning("app", false));
  EXPECT_TRUE(test::eventually([&] { return test::openDescriptors() <= descriptors; }));
}

TEST_F(LinuxApplicationsTest, ApplicationRunsAfterItsWrapperEnds) {
  desktop_.scripted("app", "sleep 60 &\n" + desktop_.report("pids", "echo $! $$"));
  start();
  open("app");
  pid_t application = 0;
  pid_t wrapper = 0;
  std::istringstream(desktop_.reported("pids")) >> application >> wrapper;
  ASSERT_TRUE(test::eventually([&] { return ::kill(wrapper, 0) != 0; }));
  EXPECT_TRUE(workspace_.isRunning("app"));
  ::kill(application, SIGKILL);
  EXPECT_TRUE(becomesRunning("app", false));
}

TEST_F(LinuxApplicationsTest, FailuresNameTheApplicationAndTheReason) {
  desktop_.entry("system/applications/Gone.desktop", "Exec=no-such-program %U\n");
  desktop_.entry("system/applications/Lost.desktop", "Exec=true\nPath=/no/such/folder\n");
  start();
  const auto failureOfOpening = [this](const std::string& bundleId) -> std::string {
    try {
      open(bundleId);
      return "it started";
    } catch (const std::runtime_error& error) {
      return error.what();
    }
  };
  EXPECT_EQ(failureOfOpening("Gone"),
            "Gone could not be started: the program \"no-such-program\" is not installed");
  EXPECT_THAT(failureOfOpening("Lost"),
              AllOf(HasSubstr("Lost could not be started: "), HasSubstr("/no/such/folder")));
  EXPECT_FALSE(workspace_.isRunning("Gone"));
  for (const std::string& other :
       {std::string("Gone\0b", 6), std::string("../applications/Gone"), std::string()}) {
    EXPECT_FALSE(workspace_.isInstalled(other)) << other;
    EXPECT_FALSE(workspace_.isRunning(other)) << other;
  }
}

TEST_F(LinuxApplicationsTest, FindsProcessesOfOthersWhileWatching) {
  const auto program = desktop_.root / "bin/player";
  std::filesystem::create_directories(program.parent_path());
  std::filesystem::copy_file("/bin/sleep", program);
  desktop_.entry("system/applications/player.desktop", "Exec=" + program.string() + " 7\n");
  std::optional<test::ChildProcess> process(std::in_place,
                                            std::vector<std::string>{program.string(), "60"});
  start();
  EXPECT_FALSE(workspace_.isRunning("player"));
  std::promise<bool> found;
  applications_->watchRunningApplications(true,
                                          [&] { found.set_value(workspace_.isRunning("player")); });
  EXPECT_TRUE(found.get_future().get()) << "known at the end of the first scan";
  process.reset();
  EXPECT_TRUE(becomesRunning("player", false, test::slowdown * std::chrono::seconds(1)))
      << "before the next scan";
  process.emplace(std::vector<std::string>{program.string(), "60"});
  EXPECT_TRUE(becomesRunning("player", true));
  applications_->watchRunningApplications(false);
  EXPECT_TRUE(becomesRunning("player", false)) << "its end would go unnoticed";
}

TEST_F(LinuxApplicationsTest, MayBeDestroyedDuringWork) {
  desktop_.entry("system/applications/app.desktop", "Exec=sleep 0.3\n");
  start();
  open("app");
  applications_->watchRunningApplications(true);
  desktop_.entry("system/applications/other.desktop", "Exec=true\n");
  std::this_thread::sleep_for(std::chrono::milliseconds(100));
  applications_.reset();
  std::this_thread::sleep_for(std::chrono::milliseconds(400));
  EXPECT_TRUE(workspace_.isInstalled("app")) << "a client answers from the last snapshot";
  workspace_ = {};
  executors_.reset();
}

}  // namespace
}  // namespace glintboard
