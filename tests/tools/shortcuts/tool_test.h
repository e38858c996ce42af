// The Shortcuts tool, run for a user that a test made.
#pragma once

#include <gmock/gmock.h>

#include "agent_core/shortcuts/shortcuts_catalog.h"
#include "platform/executors.h"
#include "platform/linux/foundation_process_runner.h"
#include "tests/platform/desktop_folders.h"
#include "tests/support/await.h"

namespace glintboard::test {

class ToolTest : public testing::Test {
 protected:
  ToolTest() {
    const auto& folders = desktop_.folders;
    std::filesystem::create_directories(folders.home);
    ::setenv("HOME", folders.home.c_str(), 1);
    ::setenv("XDG_DATA_HOME", folders.dataHome.c_str(), 1);
    ::setenv("XDG_DATA_DIRS", (desktop_.root / "system").c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", folders.configHome.c_str(), 1);
  }

  // Starts the threads: the environment must be complete.
  void start() { executors_.emplace(); }

  // Runs the tool to its end.
  ProcessRunResult tool(std::vector<std::string> words) {
    if (!executors_) {
      start();
    }
    FoundationProcessRunner runner(executors_->service());
    return await(executors_->service(),
                 runner.run(SHORTCUTS_TOOL, std::move(words), std::chrono::seconds(15)));
  }

  // Makes a Shortcut and returns its identifier.
  std::string create(const std::string& name, const std::string& command) {
    const auto made = tool({"create", name, "--command", command});
    const auto shortcut = ShortcutsCatalog::parseListLine(made.stdoutText);
    EXPECT_TRUE(shortcut) << made.stdoutText << made.stderrText;
    return shortcut ? shortcut->identifier : "";
  }

  std::filesystem::path shortcutsFolder() const {
    return desktop_.folders.dataHome / "GlintboardAgent/Shortcuts";
  }
  std::filesystem::path fileOf(const std::string& identifier) const {
    return shortcutsFolder() / (identifier + ".shortcut");
  }

  DesktopFolders desktop_;
  std::optional<Executors> executors_;
};

}  // namespace glintboard::test
