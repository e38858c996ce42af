// SPDX-License-Identifier: MIT
#include "platform/linux/network/host_name_watcher.h"

#include <fcntl.h>

#include <utility>

#include "platform/spawn.h"

namespace glintboard {

std::shared_ptr<HostNameWatcher> HostNameWatcher::start(const asio::any_io_executor& service,
                                                        std::filesystem::path machineInfo,
                                                        std::function<void()> changed) {
  std::shared_ptr<HostNameWatcher> watcher(
      new HostNameWatcher(service, std::move(machineInfo), std::move(changed)));
  spawn(service, followKernel(watcher), "host name");
  spawn(service, followFile(watcher), "host name");
  return watcher;
}

HostNameWatcher::HostNameWatcher(const asio::any_io_executor& service,
                                 std::filesystem::path machineInfo, std::function<void()> changed)
    : service_(service),
      machineInfo_(std::move(machineInfo)),
      changed_(std::move(changed)),
      kernel_(service),
      folder_(service) {
  // The kernel reports a change as an exceptional condition (POLLPRI) of this file.
  const int descriptor = ::open("/proc/sys/kernel/hostname", O_RDONLY | O_CLOEXEC);
  if (descriptor >= 0) {
    kernel_.assign(descriptor);
  }
  folder_.watch(machineInfo_.parent_path(), {machineInfo_.filename().string()});
  folder_.forgetOthers();
}

void HostNameWatcher::stop() {
  asio::post(service_, [self = shared_from_this()] {
    self->folder_.stop();
    error_code ignored;
    self->kernel_.close(ignored);
  });
}

Awaitable<> HostNameWatcher::followKernel(std::shared_ptr<HostNameWatcher> self) {
  while (self->kernel_.is_open()) {
    const auto [error] = co_await self->kernel_.async_wait(
        asio::posix::stream_descriptor::wait_error, asio::as_tuple(asio::use_awaitable));
    if (error) {
      co_return;
    }
    self->changed_();
  }
}

Awaitable<> HostNameWatcher::followFile(std::shared_ptr<HostNameWatcher> self) {
  while (!self->folder_.stopped()) {
    const bool changed = co_await self->folder_.changed();
    if (!changed) {
      co_return;
    }
    if (self->folder_.drain()) {
      self->changed_();
    }
  }
}

}  // namespace glintboard
