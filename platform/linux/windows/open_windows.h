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

// Keeps what a window system tells of its windows, finds out whose they are, and publishes which
// applications have one. Names are matched at once; what a window's process adds comes from a
// worker a moment later.
class OpenWindows : public std::enable_shared_from_this<OpenWindows> {
 public:
  // What the window system knows a window by.
  using Handle = std::uint64_t;

  static std::shared_ptr<OpenWindows> create(Executors& executors,
                                             std::shared_ptr<const ApplicationIndex> index,
                                             std::shared_ptr<CurrentApplicationMatcher> processes);

  using Snapshot = std::set<std::string>;

  // The identifiers of the applications that have a window. At once, on any thread.
  std::shared_ptr<const Snapshot> applications();

  // The others are for the service loop alone.

  // Adds a window, or tells that what it says of itself has changed.
  void put(Handle window, WindowIdentity identity);
  void remove(Handle window);
  void clear();
  // Tells that a window was given the focus.
  void used(Handle window);
  // The windows of an application, the one used last first.
  std::vector<Handle> of(const std::string& bundleId);

 private:
  struct Window {
    WindowIdentity identity;
    std::set<std::string> ofProcess;
    std::string bundleId;
    // Grows with every use; later windows start behind.
    std::uint64_t lastUse = 0;
  };

  OpenWindows(Executors& executors, std::shared_ptr<const ApplicationIndex> index,
              std::shared_ptr<CurrentApplicationMatcher> processes);
  static Awaitable<> askProcess(std::weak_ptr<OpenWindows> weakSelf, Handle window, pid_t process);
  // Follows a change of what is installed.
  void refresh();
  void match(Window& window) const;
  void publish();

  const asio::any_io_executor service_;
  const asio::any_io_executor workers_;
  const std::shared_ptr<const ApplicationIndex> index_;
  const std::shared_ptr<CurrentApplicationMatcher> processes_;

  // Touched on the service loop alone.
  std::map<Handle, Window> windows_;
  std::uint64_t uses_ = 0;
  std::unique_ptr<const WindowMatcher> matcher_;

  std::mutex mutex_;
  std::shared_ptr<const Snapshot> published_ = std::make_shared<const Snapshot>();
  std::shared_ptr<const InstalledApplications> publishedFor_;
};

}  // namespace glintboard
