// SPDX-License-Identifier: MIT
#include "platform/linux/base/directory_watcher.h"

#include <sys/inotify.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

#include "platform/log.h"

namespace glintboard {

DirectoryWatcher::DirectoryWatcher(const asio::any_io_executor& service) : events_(service) {
  const int descriptor = ::inotify_init1(IN_CLOEXEC | IN_NONBLOCK);
  if (descriptor < 0) {
    log::warning("cannot watch folders: ", std::strerror(errno));
    return;
  }
  events_.assign(descriptor);
}

void DirectoryWatcher::watch(const std::filesystem::path& folder, const Endings& endings) {
  if (!events_.is_open()) {
    return;
  }
  // The missing folder may have been created before its parent was watched: then try again.
  for (int attempt = 0; attempt < 3; ++attempt) {
    auto existing = folder;
    auto missing = folder;
    while (!add(existing, existing == folder ? endings : Endings()) &&
           existing.has_relative_path()) {
      missing = std::exchange(existing, existing.parent_path());
    }
    std::error_code ignored;
    if (existing == folder || !std::filesystem::is_directory(missing, ignored)) {
      return;
    }
  }
}

bool DirectoryWatcher::add(const std::filesystem::path& folder, const Endings& endings) {
  constexpr std::uint32_t changes = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO |
                                    IN_CLOSE_WRITE | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
  const int watch = ::inotify_add_watch(events_.native_handle(), folder.c_str(), changes);
  if (watch >= 0) {
    const auto [known, isNew] = wanted_.try_emplace(watch, endings);
    if (!isNew && known->second != endings) {
      known->second.clear();
    }
  } else if (errno == ENOSPC) {
    log::warning("cannot watch ", folder.string(), ": no inotify watches left");
    return true;
  }
  return watch >= 0;
}

void DirectoryWatcher::forgetOthers() {
  for (const auto& [watch, endings] : watched_) {
    if (!wanted_.contains(watch)) {
      // Fails for a deleted folder, whose watch the system has already removed.
      ::inotify_rm_watch(events_.native_handle(), watch);
    }
  }
  watched_ = std::exchange(wanted_, {});
}

Awaitable<bool> DirectoryWatcher::changed() {
  const auto [error] = co_await events_.async_wait(asio::posix::stream_descriptor::wait_read,
                                                   asio::as_tuple(asio::use_awaitable));
  co_return !error;
}

void DirectoryWatcher::stop() {
  stopped_ = true;
  error_code ignored;
  events_.cancel(ignored);
}

bool DirectoryWatcher::drain() {
  bool any = false;
  alignas(inotify_event) std::array<char, 4096> buffer{};
  while (events_.is_open()) {
    const auto size = ::read(events_.native_handle(), buffer.data(), buffer.size());
    if (size <= 0) {
      break;
    }
    for (const char* next = buffer.data(); next < buffer.data() + size;) {
      const auto& event = *reinterpret_cast<const inotify_event*>(next);
      next += sizeof event + event.len;
      const auto watched = watched_.find(event.wd);
      const std::string_view name = event.len == 0 ? "" : event.name;
      any = any || name.empty() || watched == watched_.end() || watched->second.empty() ||
            std::ranges::any_of(watched->second,
                                [&](const auto& ending) { return name.ends_with(ending); });
    }
  }
  return any;
}

}  // namespace glintboard
