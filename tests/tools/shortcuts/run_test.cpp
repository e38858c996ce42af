#include <csignal>

#include "agent_core/shortcuts/shortcuts_runner.h"
#include "tests/support/child_process.h"
#include "tests/tools/shortcuts/tool_test.h"

namespace glintboard {
namespace {

using namespace ShortcutRunResult;
using testing::HasSubstr;

class RunningShortcuts : public test::ToolTest {
 protected:
  // As a key of the phone runs it.
  Result tap(const std::string& identifier, std::chrono::duration<double> timeout) {
    FoundationProcessRunner runner(executors_->service());
    return test::await(executors_->service(),
                       ShortcutsRunner(SHORTCUTS_TOOL, runner, timeout).run(identifier));
  }
  bool ends(const std::string& pidFile) {
    const pid_t process = std::stoi(written(pidFile));
    return test::eventually([&] { return ::kill(process, 0) != 0; });
  }
};

TEST_F(RunningShortcuts, EveryKindOfFailureReachesThePhoneAsWhatItIs) {
  using enum ShortcutErrorCode;
  const auto text = desktop_.root.write("text", "no program");
  struct Case {
    std::string command;
    ShortcutErrorCode code;
    std::string stderrText;
  };
  const std::vector<Case> cases = {
      {"kill -TERM $$", cancelled, ""},
      {"kill -INT $$", cancelled, ""},
      {"exit 130", cancelled, ""},
      {"exit 143", cancelled, ""},
      {text.string(), cancelled, ""},
      {"exit 126", cancelled, ""},
      {"echo out; echo 'The kettle is empty.' >&2; exit 7", runFailed, "The kettle is empty."},
      {"exit 7", runFailed, ""},
      {"kill -KILL $$", runFailed, "The Shortcut's command was ended by signal 9 (KILL)."},
  };
  int number = 0;
  for (const auto& [command, code, said] : cases) {
    const auto identifier = create("Case " + std::to_string(number++), command);
    EXPECT_EQ(tap(identifier, std::chrono::seconds(15)),
              Result(Error{identifier, code, ShortcutsRunner::message(code, said)}))
        << command;
  }
  const std::string absent = "0F8FAD5B-D9CB-469F-A165-70867728950E";
  EXPECT_EQ(tap(absent, std::chrono::seconds(15)),
            Result(Error{absent, notFound, ShortcutsRunner::message(notFound, "")}));
  const auto good = create("Good", "echo 'not found' >&2");
  EXPECT_EQ(tap(good, std::chrono::seconds(15)), Result(Ok{good}));
  EXPECT_EQ(tool({"run", "Case 6"}).exitCode, 7) << "the command's own";
}

TEST_F(RunningShortcuts, ATimeoutEndsTheCommandAndAllThatItStarted) {
  const auto identifier =
      create("Slow", "sleep 60 & echo $! >" + path("a.new") + "; mv " + path("a.new") + " " +
                         path("a") + "; echo $$ >" + path("b.new") + "; mv " + path("b.new") + " " +
                         path("b") + "; wait; true");
  EXPECT_EQ(tap(identifier, std::chrono::milliseconds(500)),
            Result(Error{identifier, ShortcutErrorCode::timedOut,
                         ShortcutsRunner::message(ShortcutErrorCode::timedOut, "")}));
  EXPECT_TRUE(ends("a"));
  EXPECT_TRUE(ends("b"));
}

TEST_F(RunningShortcuts, ACommandDoesNotOutlastAToolThatAloneIsKilled) {
  create("Slow",
         "echo $$ >" + path("new") + "; mv " + path("new") + " " + path("pid") + "; exec sleep 60");
  test::ChildProcess process({SHORTCUTS_TOOL, "run", "Slow"});
  written("pid");
  process.signal(SIGKILL);
  EXPECT_TRUE(ends("pid"));
}

TEST_F(RunningShortcuts, ACommandRunsAtHomeWithoutInput) {
  create("Where", "pwd; readlink /proc/$$/fd/0; ls /proc/$$/fd; grep SigIgn /proc/$$/status");
  const auto result = tool({"run", "Where"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_THAT(result.stdoutText, testing::StartsWith(desktop_.folders.home.string() +
                                                     "\n/dev/null\n0\n1\n2\nSigIgn:"));
  EXPECT_THAT(result.stdoutText, testing::EndsWith("0000000\n")) << "interrupts end it";
}

}  // namespace
}  // namespace glintboard
