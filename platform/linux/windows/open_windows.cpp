// SPDX-License-Identifier: MIT
#include "platform/linux/windows/open_windows.h"

#include <algorithm>

#include "platform/run_on.h"
#include "platform/spawn.h"

namespace glintboard {

std::shared_ptr<OpenWindows> OpenWindows::create(
    Executors& executors, std::shared_ptr<const ApplicationIndex> index,
    std::shared_ptr<CurrentApplicationMatcher> processes) {
  return std::shared_ptr<OpenWindows>(
      new OpenWindows(executors, std::move(index), std::move(processes)));
}

OpenWindows::OpenWindows(Executors& executors, std::shared_ptr<const ApplicationIndex> index,
                         std::shared_ptr<CurrentApplicationMatcher> processes)
    : service_(executors.service()),
      workers_(executors.workers()),
      index_(std::move(index)),
      processes_(std::move(processes)) {}

std::shared_ptr<const OpenWindows::Snapshot> OpenWindows::applications() {
  const auto installed = index_->current();
  const std::scoped_lock lock(mutex_);
  if (publishedFor_ && publishedFor_ != installed) {
    publishedFor_.reset();
    asio::post(service_, [self = shared_from_this()] { self->refresh(); });
  }
  return published_;
}

void OpenWindows::put(Handle handle, WindowIdentity identity) {
  refresh();
  const auto [entry, isNew] = windows_.try_emplace(handle);
  Window& window = entry->second;
  if (!isNew && window.identity == identity) {
    return;
  }
  const bool otherProcess = window.identity.process != identity.process;
  window.identity = std::move(identity);
  if (otherProcess) {
    window.ofProcess.clear();
    spawn(service_, askProcess(weak_from_this(), handle, window.identity.process), "open windows");
  }
  match(window);
  publish();
}

void OpenWindows::remove(Handle window) {
  if (windows_.erase(window) != 0) {
    publish();
  }
}

void OpenWindows::clear() {
  windows_.clear();
  publish();
}

void OpenWindows::used(Handle window) {
  const auto known = windows_.find(window);
  if (known != windows_.end()) {
    known->second.lastUse = ++uses_;
  }
}

std::vector<OpenWindows::Handle> OpenWindows::of(const std::string& bundleId) {
  refresh();
  const auto& installed = *matcher_->installed();
  const auto* entry = installed.withBundleId(bundleId);
  std::vector<std::pair<std::uint64_t, Handle>> found;
  for (const auto& [handle, window] : windows_) {
    if (entry != nullptr && window.bundleId == installed.bundleIdOf(*entry)) {
      found.emplace_back(window.lastUse, handle);
    }
  }
  std::sort(found.rbegin(), found.rend());
  std::vector<Handle> handles;
  handles.reserve(found.size());
  for (const auto& [lastUse, handle] : found) {
    handles.push_back(handle);
  }
  return handles;
}

Awaitable<> OpenWindows::askProcess(std::weak_ptr<OpenWindows> weakSelf, Handle handle,
                                    pid_t process) {
  auto self = weakSelf.lock();
  if (!self || process <= 0) {
    co_return;
  }
  auto asking = runOn(self->workers_, [matchers = self->processes_, process] {
    const auto found = ownProcess(process);
    return found ? matchers->get()->applicationsOf(*found) : std::set<std::string>();
  });
  auto applications = co_await std::move(asking);
  const auto known = self->windows_.find(handle);
  if (known == self->windows_.end() || known->second.identity.process != process) {
    co_return;
  }
  known->second.ofProcess = std::move(applications);
  self->match(known->second);
  self->publish();
}

void OpenWindows::refresh() {
  const auto installed = index_->current();
  if (matcher_ && matcher_->installed() == installed) {
    return;
  }
  matcher_ = std::make_unique<const WindowMatcher>(installed);
  for (auto& [handle, window] : windows_) {
    match(window);
    spawn(service_, askProcess(weak_from_this(), handle, window.identity.process), "open windows");
  }
  publish();
}

void OpenWindows::match(Window& window) const {
  window.bundleId = matcher_->applicationOf(window.identity, window.ofProcess);
}

void OpenWindows::publish() {
  auto applications = std::make_shared<Snapshot>();
  for (const auto& [handle, window] : windows_) {
    if (!window.bundleId.empty()) {
      applications->insert(window.bundleId);
    }
  }
  const std::scoped_lock lock(mutex_);
  published_ = std::move(applications);
  publishedFor_ = matcher_ ? matcher_->installed() : nullptr;
}

}  // namespace glintboard
