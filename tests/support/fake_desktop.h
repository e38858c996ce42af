// SPDX-License-Identifier: MIT
// A simulated desktop for tests of logic.
#pragma once

#include <map>
#include <mutex>
#include <set>
#include <string>
#include <vector>

#include "platform/workspace_client.h"

namespace glintboard::test {

inline Awaitable<bool> answer(bool value) {
  co_return value;
}

// Applications that are installed, run and fail as the test says. Any thread.
class FakeDesktop {
 public:
  std::set<std::string> installed;
  std::set<std::string> running;
  bool activates = true;
  // What opening does: true, false, or a thrown text.
  bool opens = true;
  std::string openFailure;
  std::vector<std::string> calls;  // "activate ID" and "open ID"

  WorkspaceClient client() {
    WorkspaceClient client;
    client.urlForApplication = [this](const std::string& bundleId) {
      return installed.contains(bundleId) ? std::optional(ApplicationLocation{"/apps/" + bundleId})
                                          : std::nullopt;
    };
    client.runningApplication =
        [this](const std::string& bundleId) -> std::optional<RunningApplicationClient> {
      if (!running.contains(bundleId)) {
        return std::nullopt;
      }
      return RunningApplicationClient{[this, bundleId] {
        record("activate " + bundleId);
        return answer(activates);
      }};
    };
    client.openApplication = [this](const ApplicationLocation& application) {
      record("open " + application.path.filename().string());
      if (!openFailure.empty()) {
        throw std::runtime_error(openFailure);
      }
      return answer(opens);
    };
    return client;
  }

 private:
  void record(std::string call) {
    const std::lock_guard guard(mutex_);
    calls.push_back(std::move(call));
  }

  std::mutex mutex_;
};

}  // namespace glintboard::test
