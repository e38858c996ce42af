// SPDX-License-Identifier: MIT
// Notices when the computer may have been given another name.
#pragma once

#include <boost/asio/posix/stream_descriptor.hpp>
#include <filesystem>
#include <functional>
#include <memory>

#include "platform/linux/base/directory_watcher.h"

namespace glintboard {

// Follows the kernel's host name and the file in which hostnamed keeps the pretty one.
class HostNameWatcher : public std::enable_shared_from_this<HostNameWatcher> {
 public:
  // Calls `changed` on the service loop at every change, until `stop`; the loop keeps the watcher
  // alive until then. Also called when the name is the same after all.
  static std::shared_ptr<HostNameWatcher> start(const asio::any_io_executor& service,
                                                std::filesystem::path machineInfo,
                                                std::function<void()> changed);
  // Any thread.
  void stop();

 private:
  HostNameWatcher(const asio::any_io_executor& service, std::filesystem::path machineInfo,
                  std::function<void()> changed);
  static Awaitable<> followKernel(std::shared_ptr<HostNameWatcher> self);
  static Awaitable<> followFile(std::shared_ptr<HostNameWatcher> self);

  const asio::any_io_executor service_;
  const std::filesystem::path machineInfo_;
  const std::function<void()> changed_;
  asio::posix::stream_descriptor kernel_;
  DirectoryWatcher folder_;
};

}  // namespace glintboard
