// SPDX-License-Identifier: MIT
// Tells which application a window belongs to.
#pragma once

#include <sys/types.h>

#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/linux/applications/installed_applications.h"

namespace glintboard {

// What a window says of its application. What it does not say is empty or 0.
struct WindowIdentity {
  // The application's own id: the toolkit's, or Wayland's app_id.
  std::string applicationId;
  // The two parts of X11's WM_CLASS.
  std::string className;
  std::string instanceName;
  // The process that shows it, if that runs on this computer.
  pid_t process = 0;

  bool operator==(const WindowIdentity&) const = default;
};

// Knows the names that the installed applications' windows may bear. Does not change: any thread
// may read it.
class WindowMatcher {
 public:
  explicit WindowMatcher(std::shared_ptr<const InstalledApplications> installed);

  const std::shared_ptr<const InstalledApplications>& installed() const { return installed_; }

  // The bundle identifier of the application that a window belongs to, or empty when none of its
  // names is known. `ofProcess` are the applications that the window's process counts for
  // (ApplicationMatcher): they decide between applications with the same name, and stand in where
  // no name is known.
  std::string applicationOf(const WindowIdentity& window,
                            const std::set<std::string>& ofProcess) const;

 private:
  // Entries by a name, in the order of `InstalledApplications::all`.
  using Names = std::unordered_map<std::string, std::vector<const DesktopEntry*>>;

  void addEntry(const DesktopEntry& entry);

  std::shared_ptr<const InstalledApplications> installed_;
  // By how well a name tells an application, the best first.
  Names byId_;
  Names byWindowClass_;
  Names byFoldedName_;
  Names byPartOfId_;
  Names byProgram_;
};

}  // namespace glintboard
