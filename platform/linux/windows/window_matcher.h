// SPDX-License-Identifier: MIT
// Matches windows with applications.
#pragma once

#include <sys/types.h>

#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/linux/applications/installed_applications.h"

namespace glintboard {

// What a window declares about its application. Undeclared fields are empty or 0.
struct WindowIdentity {
  // The application's own id: the toolkit's, or Wayland's app_id.
  std::string applicationId;
  // The two parts of X11's WM_CLASS.
  std::string className;
  std::string instanceName;
  // The window's process, if that runs on this computer.
  pid_t process = 0;

  bool operator==(const WindowIdentity&) const = default;
};

// Knows the names that windows of the installed applications may have. Immutable: any thread may
// read it.
class WindowMatcher {
 public:
  explicit WindowMatcher(std::shared_ptr<const InstalledApplications> installed);

  const std::shared_ptr<const InstalledApplications>& installed() const { return installed_; }

  // The bundle identifier of a window's application, or empty. `ofProcess` has the applications of
  // the window's process (ApplicationMatcher): they decide between applications with the same name,
  // and are used if no name is known.
  std::string applicationOf(const WindowIdentity& window,
                            const std::set<std::string>& ofProcess) const;

 private:
  // Entries by name, those that belong in menus first, else in the order of
  // `InstalledApplications::all`.
  using Names = std::unordered_map<std::string, std::vector<const DesktopEntry*>>;

  void addEntry(const DesktopEntry& entry);

  std::shared_ptr<const InstalledApplications> installed_;
  // In the order of precedence.
  Names byId_;
  Names byWindowClass_;
  Names byFoldedName_;
  Names byPartOfId_;
  Names byProgram_;
};

}  // namespace glintboard
