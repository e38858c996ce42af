#include "platform/linux/shortcuts_application.h"

#include "tests/support/fake_desktop.h"
#include "tests/tools/shortcuts/tool_test.h"

namespace glintboard {
namespace {

using ShortcutsApplication = test::ToolTest;

TEST_F(ShortcutsApplication, OpensTheFolderOfShortcutsInTheFileManager) {
  const auto program =
      desktop_.program("bin/files", "#!/bin/sh\necho \"$1\" >" + path("new") + "\nmv " +
                                        path("new") + " " + path("opened") + "\n");
  desktop_.entry("system/applications/files.desktop",
                 "Exec=" + program.string() + " %f\nMimeType=inode/directory;\n");
  desktop_.root.write("system/applications/mimeinfo.cache",
                      "[MIME Cache]\ninode/directory=files.desktop;\n");
  start();
  test::FakeDesktop others;
  others.installed = {"other"};
  const auto workspace =
      withShortcutsApplication(others.client(), executors_->workers(), shortcutsFolder());
  const auto open = [&](const std::string& bundleId) {
    return test::await(executors_->service(),
                       workspace.openApplication(*workspace.urlForApplication(bundleId)));
  };
  EXPECT_FALSE(workspace.isInstalled("unknown"));
  EXPECT_FALSE(workspace.isRunning(shortcutsBundleId));
  EXPECT_TRUE(open("other"));
  EXPECT_EQ(others.calls, std::vector<std::string>{"open other"});
  EXPECT_TRUE(open(shortcutsBundleId));
  EXPECT_EQ(written("opened"), shortcutsFolder().string() + "\n");
  EXPECT_TRUE(std::filesystem::is_directory(shortcutsFolder()));
  EXPECT_EQ(others.calls.size(), 1u);
}

}  // namespace
}  // namespace glintboard
