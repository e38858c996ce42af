// SPDX-License-Identifier: MIT
// Reports changes in folders, with inotify.
#pragma once

#include <boost/asio/posix/stream_descriptor.hpp>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "platform/asio.h"

namespace glintboard {

// Watches folders, not their subfolders. The owner calls one operation at a time, on any thread
// unless stated otherwise. When the system has no more watches, changes are missed and a warning is
// logged.
class DirectoryWatcher {
 public:
  using Endings = std::vector<std::string>;

  // `service` is the executor of the service loop. The watcher must outlive `changed`.
  explicit DirectoryWatcher(const asio::any_io_executor& service);

  // Watches `folder`, or its nearest existing parent if it does not exist. Non-empty `endings`
  // limit the watch to file names with one of these endings. Call it before reading the folder, so
  // that no change is missed.
  void watch(const std::filesystem::path& folder, const Endings& endings = {});
  // Ends the watches of all folders that were not passed to `watch` since the last call of this.
  void forgetOthers();
  // Resumes when there are unread changes. False after `stop` or on an error. Service loop.
  Awaitable<bool> changed();
  // Reads all changes so far. Whether one of them concerns a watched name. Service loop.
  bool drain();
  // Ends a waiting `changed`; do not call it again. Service loop, also while another operation runs
  // on another thread.
  void stop();
  // Whether `stop` was called. Service loop.
  bool stopped() const { return stopped_; }

 private:
  bool add(const std::filesystem::path& folder, const Endings& endings);

  asio::posix::stream_descriptor events_;
  // The endings by the watch descriptor: those in effect, and those requested since `forgetOthers`.
  std::map<int, Endings> watched_;
  std::map<int, Endings> wanted_;
  bool stopped_ = false;
};

}  // namespace glintboard
