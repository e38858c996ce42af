// SPDX-License-Identifier: MIT
// The installed and running applications of the desktop.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "platform/asio.h"

namespace glintboard {

// Identifies an installed application by the file of its desktop entry.
struct ApplicationLocation {
  std::filesystem::path path;
  bool operator==(const ApplicationLocation&) const = default;
};

// One running application.
struct RunningApplicationClient {
  // Brings the application's windows to the front. True when the desktop accepted the request,
  // false after two seconds at the latest. Never throws.
  std::function<Awaitable<bool>()> activate;
};

// A snapshot of which applications are installed and which run, by bundle identifier. Any thread.
struct ApplicationStates {
  std::function<bool(const std::string& bundleId)> isInstalled;
  std::function<bool(const std::string& bundleId)> isRunning;
};

// The operations on applications that the desktop offers, each replaceable. Applications are named
// by bundle identifier. The two look-ups answer from memory without blocking, on any thread.
struct WorkspaceClient {
  // The client of the LivePlatform. Throws std::logic_error without one.
  static WorkspaceClient live();

  // The installed application of that identifier, or none.
  std::function<std::optional<ApplicationLocation>(const std::string& bundleId)> urlForApplication;
  // The running application of that identifier, or none.
  std::function<std::optional<RunningApplicationClient>(const std::string& bundleId)>
      runningApplication;
  // Starts an installed application. True when the desktop reports it started; throws UserError
  // when it could not be started.
  std::function<Awaitable<bool>(ApplicationLocation application)> openApplication;

  // Optional: makes a snapshot, for callers that look up many applications.
  std::function<ApplicationStates()> currentStates;

  // A snapshot; without `currentStates`, live look-ups that must not outlive this client.
  ApplicationStates states() const {
    return currentStates
               ? currentStates()
               : ApplicationStates{
                     [this](const std::string& bundleId) { return isInstalled(bundleId); },
                     [this](const std::string& bundleId) { return isRunning(bundleId); }};
  }
  bool isInstalled(const std::string& bundleId) const {
    return urlForApplication(bundleId).has_value();
  }
  bool isRunning(const std::string& bundleId) const {
    return runningApplication(bundleId).has_value();
  }

  // Those of the given identifiers that are installed.
  template <class Range>
  std::set<std::string> installedBundleIds(const Range& among) const {
    return matching(among, [this](const std::string& bundleId) { return isInstalled(bundleId); });
  }

  // Those of the given identifiers that are running.
  template <class Range>
  std::set<std::string> runningBundleIds(const Range& among) const {
    return matching(among, [this](const std::string& bundleId) { return isRunning(bundleId); });
  }

 private:
  template <class Range, class Predicate>
  static std::set<std::string> matching(const Range& among, Predicate holds) {
    std::set<std::string> found;
    for (const auto& bundleId : among) {
      if (holds(bundleId)) {
        found.insert(bundleId);
      }
    }
    return found;
  }
};

}  // namespace glintboard
