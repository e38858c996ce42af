// SPDX-License-Identifier: MIT
#include "platform/linux/applications/application_index.h"

#include "platform/linux/applications/application_scan.h"
#include "platform/linux/applications/default_applications.h"
#include "platform/run_on.h"
#include "platform/spawn.h"

namespace glintboard {

std::shared_ptr<ApplicationIndex> ApplicationIndex::open(Executors& executors,
                                                         const XdgFolders& folders) {
  std::shared_ptr<ApplicationIndex> index(new ApplicationIndex(executors, folders));
  index->scan();
  spawn(index->service_, follow(index), "installed applications");
  return index;
}

ApplicationIndex::ApplicationIndex(Executors& executors, const XdgFolders& folders)
    : service_(executors.service()),
      workers_(executors.workers()),
      folders_(folders),
      watcher_(service_) {}

std::shared_ptr<const InstalledApplications> ApplicationIndex::current() const {
  const std::scoped_lock lock(mutex_);
  return current_;
}

void ApplicationIndex::stop() {
  asio::post(service_, [self = shared_from_this()] { self->watcher_.stop(); });
}

Awaitable<> ApplicationIndex::follow(std::shared_ptr<ApplicationIndex> self) {
  while (!self->watcher_.stopped()) {
    const bool changed = co_await self->watcher_.changed();
    if (!changed) {
      co_return;
    }
    // An installation changes many files at once.
    co_await sleepFor(std::chrono::milliseconds(100));
    if (!self->watcher_.drain()) {
      continue;
    }
    auto scanned = runOn(self->workers_, [self] { self->scan(); });
    co_await std::move(scanned);
  }
}

void ApplicationIndex::scan() {
  auto entries =
      scanApplications(folders_.dataFolders("applications"),
                       [this](const std::filesystem::path& folder) { watcher_.watch(folder); });
  for (const auto& [folder, endings] : defaultApplicationFiles(folders_)) {
    watcher_.watch(folder, endings);
  }
  watcher_.forgetOthers();
  auto known = knownApplications(entries, folders_);
  auto scanned =
      std::make_shared<const InstalledApplications>(std::move(entries), std::move(known));
  const std::scoped_lock lock(mutex_);
  current_.swap(scanned);
}

}  // namespace glintboard
