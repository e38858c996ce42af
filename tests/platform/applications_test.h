// SPDX-License-Identifier: MIT
// A fixture with the applications of a private desktop.
#pragma once

#include <gtest/gtest.h>

#include "platform/linux/applications/application_index.h"
#include "platform/linux/linux_applications.h"
#include "tests/platform/desktop_folders.h"
#include "tests/support/await.h"

namespace glintboard::test {

// A live index of the desktop's applications.
class IndexTest : public testing::Test {
 protected:
  ~IndexTest() override {
    if (index_) {
      index_->stop();
    }
  }
  // Starts threads: set the environment first.
  void open() {
    executors_.emplace();
    index_ = ApplicationIndex::open(*executors_, desktop_.folders);
  }

  DesktopFolders desktop_;
  std::optional<Executors> executors_;
  std::shared_ptr<ApplicationIndex> index_;
};

class ApplicationsTest : public testing::Test {
 protected:
  // Starts threads: set the environment first.
  void start(const Displays& displays = {}) {
    // The previous objects must be destroyed before their executors.
    workspace_ = {};
    applications_.reset();
    executors_.emplace();
    applications_.emplace(*executors_, desktop_.folders, displays);
    workspace_ = applications_->workspaceClient();
  }
  void open(const std::string& bundleId) {
    const auto location = workspace_.urlForApplication(bundleId);
    ASSERT_TRUE(location.has_value());
    EXPECT_TRUE(await(executors_->service(), workspace_.openApplication(*location)));
  }
  bool activate(const std::string& bundleId) {
    const auto running = workspace_.runningApplication(bundleId);
    return running && await(executors_->service(), running->activate());
  }
  bool becomesRunning(const std::string& bundleId, bool running,
                      std::chrono::milliseconds limit = slowdown * std::chrono::seconds(10)) {
    return eventually([&] { return workspace_.isRunning(bundleId) == running; }, limit);
  }

  DesktopFolders desktop_;
  std::optional<Executors> executors_;
  std::optional<LinuxApplications> applications_;
  WorkspaceClient workspace_;
};

}  // namespace glintboard::test
