// SPDX-License-Identifier: MIT
// The windows that are open, by application.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <vector>

#include "platform/executors.h"
#include "platform/linux/applications/application_matcher.h"
#include "platform/linux/windows/window_matcher.h"

namespace glintboard {

// Records the windows of one display, matches them with applications and publishes which
// applications have a window. The names of a window are matched at once; its process is matched on
// a worker shortly after.
class OpenWindows : public std::enable_shared_from_this<OpenWindows> {
 public:
  // The display's identifier of a window.
  using Handle = std::uint64_t;

  static std::shared_ptr<OpenWindows> create(Executors& executors,
                                             std::shared_ptr<const ApplicationIndex> index,
                                             std::shared_ptr<CurrentApplicationMatcher> processes);

  using Snapshot = std::set<std::string>;

  // The identifiers of the applications that have a window. Does not block. Any thread.
  std::shared_ptr<const Snapshot> applications();

  // The following are for the service loop only.

  // Adds a window or updates its identity.
  void put(Handle window, WindowIdentity identity);
  void remove(Handle window);
  void clear();
  // Records that a window received the focus. Ignores unknown windows.
  void used(Handle window);
  // The windows of an application, the most recently used first.
  std::vector<Handle> of(const std::string& bundleId);

 private:
  struct Window {
    WindowIdentity identity;
    std::set<std::string> ofProcess;
    std::string bundleId;
    // The value of `uses_` at the last use; 0 before the first.
    std::uint64_t lastUse = 0;
  };

  OpenWindows(Executors& executors, std::shared_ptr<const ApplicationIndex> index,
              std::shared_ptr<CurrentApplicationMatcher> processes);
  // Matches a window's process on a worker. Does nothing if the window has changed meanwhile.
  static Awaitable<> askProcess(std::weak_ptr<OpenWindows> weakSelf, Handle window, pid_t process);
  // Matches all windows again if the installed applications have changed.
  void refresh();
  void match(Window& window) const;
  // Publishes a new snapshot.
  void publish();

  const asio::any_io_executor service_;
  const asio::any_io_executor workers_;
  const std::shared_ptr<const ApplicationIndex> index_;
  const std::shared_ptr<CurrentApplicationMatcher> processes_;

  // Service loop only.
  std::map<Handle, Window> windows_;
  std::uint64_t uses_ = 0;
  std::unique_ptr<const WindowMatcher> matcher_;

  std::mutex mutex_;  // guards the members below
  std::shared_ptr<const Snapshot> published_ = std::make_shared<const Snapshot>();
  std::shared_ptr<const InstalledApplications> publishedFor_;
};

}  // namespace glintboard
