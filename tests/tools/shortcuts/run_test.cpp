#include <csignal>

#include "agent_core/shortcuts/shortcuts_runner.h"
#include "platform/linux/linux_applications.h"
#include "tests/support/child_process.h"
#include "tests/support/fake_desktop.h"
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
    const pid_t process = std::stoi(desktop_.reported(pidFile));
    return test::eventually([&] { return ::kill(process, 0) != 0; });
  }
};

TEST_F(RunningShortcuts, EveryKindOfFailureReachesThePhoneAsWhatItIs) {
  using enum ShortcutErrorCode;
  const auto text = desktop_.root.write("text", "no program");
  const std::string missing = "The Shortcut's command names a program that is not installed";
  const std::tuple<std::string, ShortcutErrorCode, std::string> cases[] = {
      {"kill -TERM $$", cancelled, ""},
      {"kill -INT $$", cancelled, ""},
      {"exit 130", cancelled, ""},
      {"exit 143", cancelled, ""},
      {text.string(), cancelled, ""},
      {"exit 126", cancelled, ""},
      {"echo out; echo 'The kettle is empty.' >&2; exit 7", runFailed, "The kettle is empty."},
      {"exit 7", runFailed, ""},
      {"kill -KILL $$", runFailed, "The Shortcut's command was ended by signal 9 (KILL)."},
      {"exit 170", runFailed, "The Shortcut's command was ended by signal 42."},
      {"no-such-kettle --boil", runFailed, missing + ": no-such-kettle"},
      {"echo 'No water.' >&2; exit 127", runFailed, "No water.\n" + missing + "."},
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
  create("Left behind", "echo early >&2; (sleep 0.2; printf late >&2) &");
  EXPECT_EQ(test::outputOf(SHORTCUTS_TOOL " run 'Left behind' 2>&1 >/dev/null"), "early\nlate");
}

TEST_F(RunningShortcuts, ATimeoutEndsTheCommandAndAllThatItStarted) {
  const auto identifier = create("Slow", "sleep 60 & " + desktop_.report("a", "echo $!") + "; " +
                                             desktop_.report("b", "echo $$") + "; wait; true");
  EXPECT_EQ(tap(identifier, test::patience * std::chrono::milliseconds(500)),
            Result(Error{identifier, ShortcutErrorCode::timedOut,
                         ShortcutsRunner::message(ShortcutErrorCode::timedOut, "")}));
  EXPECT_TRUE(ends("a"));
  EXPECT_TRUE(ends("b"));
}

TEST_F(RunningShortcuts, ACommandDoesNotOutlastAToolThatAloneIsKilled) {
  create("Slow", desktop_.report("pid", "echo $$") + "; exec sleep 60");
  test::ChildProcess process({SHORTCUTS_TOOL, "run", "Slow"});
  desktop_.reported("pid");
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

TEST_F(RunningShortcuts, OpenTheirFolderInTheFileManager) {
  const auto program =
      desktop_.program("bin/files", "#!/bin/sh\n" + desktop_.report("opened", "echo \"$1\""));
  desktop_.entry("system/applications/files.desktop",
                 "Exec=" + program.string() + " %f\nMimeType=inode/directory;\n");
  desktop_.root.write("system/applications/mimeinfo.cache",
                      "[MIME Cache]\ninode/directory=files.desktop;\n");
  start();
  test::FakeDesktop others;
  others.installed = {"other"};
  LinuxApplications applications(*executors_, desktop_.folders);
  const auto workspace =
      withShortcutsApplication(others.client(), shortcutsFolder(), applications.folderOpener());
  const auto open = [&](const std::string& bundleId) {
    return test::await(executors_->service(),
                       workspace.openApplication(*workspace.urlForApplication(bundleId)));
  };
  EXPECT_FALSE(workspace.isInstalled("unknown"));
  EXPECT_FALSE(workspace.isRunning(shortcutsBundleId));
  EXPECT_TRUE(open("other"));
  EXPECT_EQ(others.calls, std::vector<std::string>{"open other"});
  EXPECT_TRUE(open(shortcutsBundleId));
  EXPECT_EQ(desktop_.reported("opened"), shortcutsFolder().string() + "\n");
  EXPECT_TRUE(std::filesystem::is_directory(shortcutsFolder()));
  EXPECT_EQ(others.calls.size(), 1u);
}

}  // namespace
}  // namespace glintboard
