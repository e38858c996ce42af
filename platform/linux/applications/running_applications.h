// SPDX-License-Identifier: MIT
// Finds running applications by their processes.
#pragma once

#include <sys/types.h>

#include <boost/asio/posix/stream_descriptor.hpp>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>

#include "platform/executors.h"
#include "platform/linux/applications/application_matcher.h"

namespace glintboard {

// An application that this agent launched counts as running at once, until the last process of its
// session has ended. While watching, other applications are found by a scan of the user's processes
// every two seconds; their end is noticed at once. Idle while not watching and nothing launched
// runs.
class RunningApplications : public std::enable_shared_from_this<RunningApplications> {
 public:
  // The processes of each running application, by bundle identifier.
  using Snapshot = std::map<std::string, std::set<pid_t>>;

  static std::shared_ptr<RunningApplications> create(
      Executors& executors, std::shared_ptr<CurrentApplicationMatcher> matcher);

  // The latest snapshot. Does not block. Any thread.
  std::shared_ptr<const Snapshot> current() const;
  // Adds a launched application; `leader` is the leader of a session of its own. Any thread.
  void launched(const std::string& bundleId, pid_t leader);
  // Any thread. What was found is forgotten when the watching ends. `scanned` is called on the
  // service loop once the first scan after the watching began has ended; never if it is ended
  // before that.
  void watch(bool on, std::function<void()> scanned = nullptr);

 private:
  struct Launched {
    std::string bundleId;
    // A running process of the session.
    pid_t process = 0;
  };

  struct Followed {
    pid_t process = 0;
    asio::posix::stream_descriptor end;
  };

  RunningApplications(Executors& executors, std::shared_ptr<CurrentApplicationMatcher> matcher);
  static Awaitable<> followSession(std::weak_ptr<RunningApplications> weakSelf, pid_t leader);
  static Awaitable<> scanRepeatedly(std::shared_ptr<RunningApplications> self, unsigned round,
                                    std::function<void()> scanned);
  void startOrStop(bool on, std::function<void()> scanned);
  // Looks through all processes. On a worker.
  Snapshot scan();
  // Replaces the result of the previous scan. On the service loop.
  void takeScan(Snapshot scanned);
  // Waits for the end of one of an application's processes. Removes processes that have ended.
  void followOneOf(const std::string& bundleId, std::set<pid_t>& processes);
  void ended(const std::string& bundleId, pid_t process);
  // Publishes a new snapshot. Requires `mutex_`.
  void publish();

  const asio::any_io_executor service_;
  const asio::any_io_executor workers_;
  const std::shared_ptr<CurrentApplicationMatcher> matcher_;

  // Service loop only.
  asio::steady_timer nextScan_;
  bool watching_ = false;
  unsigned round_ = 0;
  // One process of each application that was found.
  std::map<std::string, Followed> followed_;

  mutable std::mutex mutex_;
  // By the leader of the session.
  std::map<pid_t, Launched> launched_;
  Snapshot scanned_;
  std::shared_ptr<const Snapshot> current_ = std::make_shared<const Snapshot>();
};

}  // namespace glintboard
