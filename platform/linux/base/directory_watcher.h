// SPDX-License-Identifier: MIT
// Notices that something changed in some folders, without looking at them again and again.
#pragma once

#include <boost/asio/posix/stream_descriptor.hpp>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "platform/asio.h"

namespace glintboard {

// Watches folders, not what lies below them. The owner calls one operation at a time, on any
// thread where nothing else is said. Where the system has no more watches to give, changes go
// unnoticed and the log says so.
class DirectoryWatcher {
 public:
  using Endings = std::vector<std::string>;

  // `service` is the executor of the service loop. The watcher must outlive `changed`.
  explicit DirectoryWatcher(const asio::any_io_executor& service);

  // Watches `folder`; where it does not exist, the nearest folder above it that does. Of a folder
  // in which much else changes, only names that end in one of `endings`. To miss nothing, call it
  // before reading the folder.
  void watch(const std::filesystem::path& folder, const Endings& endings = {});
  // Ends the watching of every folder that `watch` was not called for since the last time.
  void forgetOthers();
  // Resumes when something has changed since the last call. False when there is nothing more to
  // wait for. On the service loop.
  Awaitable<bool> changed();
  // Takes the changes noticed so far as known; whether one of them is of interest. On the service
  // loop.
  bool drain();
  // Ends the `changed` under way; the next must not be started. On the service loop, also while
  // another operation runs elsewhere.
  void stop();
  // Whether `stop` was called. On the service loop.
  bool stopped() const { return stopped_; }

 private:
  bool add(const std::filesystem::path& folder, const Endings& endings);

  asio::posix::stream_descriptor events_;
  // By the number of the watch, the endings of interest.
  std::map<int, Endings> watched_;
  std::map<int, Endings> wanted_;
  bool stopped_ = false;
};

}  // namespace glintboard
