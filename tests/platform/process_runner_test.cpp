// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>

#include <atomic>
#include <boost/asio/bind_cancellation_slot.hpp>
#include <boost/asio/cancellation_signal.hpp>
#include <filesystem>

#include "platform/executors.h"
#include "platform/linux/process/foundation_process_runner.h"
#include "platform/linux/process/locked_data.h"
#include "platform/user_error.h"
#include "tests/support/await.h"
#include "tests/support/child_process.h"
#include "tests/support/temporary_folder.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;
using Seconds = std::chrono::duration<double>;

class ProcessRunner : public testing::Test {
 protected:
  ProcessRunResult shell(const std::string& script, Seconds timeout = 10s) {
    const auto start = std::chrono::steady_clock::now();
    auto result =
        test::await(executors_.workers(), runner_.run("/bin/sh", {"-c", script}, timeout));
    took_ = std::chrono::steady_clock::now() - start;
    return result;
  }

  static bool hasChild() { return ::waitid(P_ALL, 0, nullptr, WEXITED | WNOHANG | WNOWAIT) == 0; }

  Executors executors_;
  FoundationProcessRunner runner_{executors_.service()};
  Seconds took_{};
};

TEST_F(ProcessRunner, ReportsExitCodeAndOutput) {
  const struct {
    std::string script;
    ProcessRunResult expected;
  } cases[] = {
      {"echo out; echo err >&2; exit 3", {3, "out\n", "err\n", false}},
      {"kill -9 $$", {137, "", "", false}},
      {"kill -TERM $$", {143, "", "", false}},
      {"read line || echo end of input", {0, "end of input\n", "", false}},
      {"printf 'gr\\303\\274n'; printf 'gr\\374n' >&2", {0, "gr\u00fcn", "", false}},
      {"printf 'a\\000b'", {0, std::string("a\0b", 3), "", false}},
      // A descendant that keeps the streams open does not delay the run.
      {"sleep 3 & echo started", {0, "started\n", "", false}},
  };
  for (const auto& [script, expected] : cases) {
    EXPECT_EQ(shell(script), expected) << script;
    EXPECT_LT(took_, test::slowdown * 1s) << script;
  }
}

TEST_F(ProcessRunner, KeepsTheFirstMebibyteOfEachStream) {
  const auto result = shell("head -c 3000000 /dev/zero | tr '\\0' x; echo end >&2");
  EXPECT_EQ(result.stdoutText, std::string(LockedData::limit, 'x'));
  EXPECT_EQ(result.stderrText, "end\n");
  const auto cut = shell("printf x; yes '\u00fc' | tr -d '\\n' | head -c 3000000");
  EXPECT_EQ(cut.stdoutText.size(), LockedData::limit - 1) << "a cut character is left out";
}

TEST_F(ProcessRunner, EndlessOutputOfADescendantDelaysNothing) {
  const auto result = shell("yes & echo $!");
  EXPECT_LT(took_, test::slowdown * 1s);
  EXPECT_EQ(result.exitCode, 0);
  ::kill(std::stoi(result.stdoutText.substr(result.stdoutText.find_first_of("0123456789"))),
         SIGKILL);
}

TEST_F(ProcessRunner, TerminatesTheGroupAtTheDeadlineAndKillsItTwoSecondsLater) {
  const struct {
    const char* script;  // first prints the id of the process that must end
    int exitCode;
    Seconds afterDeadline;  // at least; a second more at most
  } cases[] = {
      {"trap 'exit 0' TERM; sleep 300 & echo $!; while :; do wait; done", 0, 0s},
      {"(trap '' TERM; sleep 300) & echo $!; wait", 143, 0s},
      {"trap '' TERM; echo $$; yes", 137, 2s},
  };
  const Seconds deadline = test::slowdown * 0.3s;
  for (const auto& [script, exitCode, afterDeadline] : cases) {
    const auto result = shell(script, deadline);
    EXPECT_TRUE(result.timedOut) << script;
    EXPECT_EQ(result.exitCode, exitCode) << script;
    EXPECT_GE(took_, deadline + afterDeadline) << script;
    EXPECT_LT(took_, deadline + afterDeadline + test::slowdown * 1s) << script;
    const auto process = std::to_string(std::stoi(result.stdoutText));
    const auto alive = "ps -o state= -p " + process + " | grep -v Z";
    EXPECT_TRUE(test::eventually([&] { return test::outputOf(alive).empty(); })) << script;
  }
}

TEST_F(ProcessRunner, ChildInheritsNoDescriptorsAndNoSignalState) {
  const int inheritable = ::open("/dev/null", O_RDONLY);  // not close-on-exec
  ASSERT_GT(inheritable, 2);
  ::signal(SIGPIPE, SIG_IGN);
  sigset_t blocked;
  ::sigemptyset(&blocked);
  ::sigaddset(&blocked, SIGUSR1);
  ::pthread_sigmask(SIG_BLOCK, &blocked, nullptr);
  EXPECT_EQ(shell("ls /proc/$$/fd").stdoutText, "0\n1\n2\n");
  EXPECT_EQ(shell("exec grep SigBlk /proc/self/status").stdoutText, "SigBlk:\t0000000000000000\n");
  // The C library ignores its two internal real-time signals in every program.
  EXPECT_THAT(shell("exec grep SigIgn /proc/self/status").stdoutText,
              testing::EndsWith("0000000\n"));
  ::pthread_sigmask(SIG_UNBLOCK, &blocked, nullptr);
  ::signal(SIGPIPE, SIG_DFL);
  ::close(inheritable);
}

TEST_F(ProcessRunner, ReportsWhyAProgramCannotStart) {
  const test::TemporaryFolder folder;
  const std::string plain = folder.write("plain", "no program");
  EXPECT_TRUE(isExecutableFile("/bin/sh"));
  for (const std::string& program :
       {std::string("/nowhere/program"), plain, folder.path().string()}) {
    EXPECT_FALSE(isExecutableFile(program));
    try {
      test::await(executors_.service(), runner_.run(program, {}, 1s));
      ADD_FAILURE() << program << " has run";
    } catch (const UserError& error) {
      EXPECT_THAT(error.what(), testing::HasSubstr(program + ": "));
    }
  }
  const std::vector<std::string> cut = {"-c", std::string("exit\0 3", 7)};
  EXPECT_THROW(test::await(executors_.service(), runner_.run("/bin/sh", cut, 1s)), UserError);
  EXPECT_FALSE(hasChild());
}

Awaitable<> runAndCount(FoundationProcessRunner& runner, std::string script,
                        std::atomic<int>& ran) {
  std::vector<std::string> arguments(1, "-c");
  arguments.push_back(std::move(script));
  co_await runner.run("/bin/sh", std::move(arguments), test::slowdown * 5s);
  ++ran;
}

TEST_F(ProcessRunner, RunsManyAtOnceWithoutLeaks) {
  shell("true");  // opens the loop's own descriptors
  const auto before = test::openDescriptors();
  std::atomic<int> ran = 0;
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < 20; ++i) {
    asio::co_spawn(executors_.service(), runAndCount(runner_, "sleep 0.3", ran),
                   [](const std::exception_ptr&) {});
  }
  EXPECT_TRUE(test::eventually([&] { return ran == 20; }));
  EXPECT_LT(std::chrono::steady_clock::now() - start, test::slowdown * 3s);
  EXPECT_TRUE(test::eventually([&] { return test::openDescriptors() == before; }));
  EXPECT_FALSE(hasChild());
}

TEST_F(ProcessRunner, CancelledCallerDoesNotEndTheRun) {
  shell("true");
  const auto before = test::openDescriptors();
  const test::TemporaryFolder folder;
  std::atomic<int> ran = 0;
  std::atomic<bool> resumed = false;
  asio::cancellation_signal cancel;
  asio::co_spawn(executors_.service(),
                 runAndCount(runner_, "sleep 0.3; touch " + (folder / "done").string(), ran),
                 asio::bind_cancellation_slot(
                     cancel.slot(), [&resumed](const std::exception_ptr&) { resumed = true; }));
  ASSERT_TRUE(test::eventually(hasChild));
  asio::post(executors_.service(), [&] { cancel.emit(asio::cancellation_type::terminal); });
  EXPECT_TRUE(test::eventually([&] { return resumed.load(); }));
  EXPECT_TRUE(std::filesystem::exists(folder / "done"));
  EXPECT_TRUE(test::eventually([&] { return test::openDescriptors() == before; }));
  EXPECT_FALSE(hasChild());
}

TEST_F(ProcessRunner, DestroyedLoopLeavesItsProcessesRunning) {
  const test::TemporaryFolder folder;
  const auto before = test::openDescriptors();
  {
    Executors passing;
    FoundationProcessRunner runner(passing.service());
    std::atomic<int> ran = 0;
    asio::co_spawn(passing.service(),
                   runAndCount(runner, "sleep 0.3; touch " + (folder / "done").string(), ran),
                   [](const std::exception_ptr&) {});
    EXPECT_TRUE(test::eventually(hasChild));
  }
  EXPECT_EQ(test::openDescriptors(), before);
  EXPECT_TRUE(test::eventually([&] { return std::filesystem::exists(folder / "done"); }));
  ::wait(nullptr);
}

}  // namespace
}  // namespace glintboard
