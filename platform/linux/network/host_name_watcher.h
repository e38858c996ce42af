// SPDX-License-Identifier: MIT
// Reports changes of the computer's name.
#pragma once

#include <boost/asio/posix/stream_descriptor.hpp>
#include <filesystem>
#include <functional>
#include <memory>

#include "platform/linux/base/directory_watcher.h"

namespace glintboard {

// Watches the kernel's host name and hostnamed's file with the pretty one.
class HostNameWatcher : public std::enable_shared_from_this<HostNameWatcher> {
 public:
  // Calls `changed` on the service loop when the name may have changed, until `stop`. The loop
  // keeps the watcher alive until then.
  static std::shared_ptr<HostNameWatcher> start(const asio::any_io_executor& service,
                                                std::filesystem::path machineInfo,
                                                std::function<void()> changed);
  // Ends the watching. Any thread.
  void stop();

 private:
  HostNameWatcher(const asio::any_io_executor& service, std::filesystem::path machineInfo,
                  std::function<void()> changed);
  // These call `changed_` until `stop`.
  static Awaitable<> followKernel(std::shared_ptr<HostNameWatcher> self);
  static Awaitable<> followFile(std::shared_ptr<HostNameWatcher> self);

  const asio::any_io_executor service_;
  const std::filesystem::path machineInfo_;
  const std::function<void()> changed_;
  asio::posix::stream_descriptor kernel_;
  DirectoryWatcher folder_;
};

}  // namespace glintboard
