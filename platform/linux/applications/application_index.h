// SPDX-License-Identifier: MIT
// The installed applications, kept up to date.
#pragma once

#include <memory>
#include <mutex>

#include "platform/executors.h"
#include "platform/linux/applications/installed_applications.h"
#include "platform/linux/base/directory_watcher.h"
#include "platform/linux/base/xdg_folders.h"

namespace glintboard {

class ApplicationIndex : public std::enable_shared_from_this<ApplicationIndex> {
 public:
  // Reads the applications folders of `folders`, which blocks for a few milliseconds, and follows
  // their changes until `stop`. The service loop of `executors` keeps the index alive until then.
  static std::shared_ptr<ApplicationIndex> open(Executors& executors, const XdgFolders& folders);

  // The installed applications. A change on the disk appears after about 100 ms. Does not block.
  // Any thread.
  std::shared_ptr<const InstalledApplications> current() const;
  // Ends following the changes. Any thread.
  void stop();

 private:
  ApplicationIndex(Executors& executors, const XdgFolders& folders);
  static Awaitable<> follow(std::shared_ptr<ApplicationIndex> self);
  // Reads the applications folders and publishes the result. Blocks on the disk.
  void scan();

  const asio::any_io_executor service_;
  const asio::any_io_executor workers_;
  const XdgFolders folders_;
  DirectoryWatcher watcher_;
  mutable std::mutex mutex_;
  std::shared_ptr<const InstalledApplications> current_;
};

}  // namespace glintboard
