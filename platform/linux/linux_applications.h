// SPDX-License-Identifier: MIT
// The applications of this desktop.
#pragma once

#include <memory>
#include <string>

#include "platform/application_icon_client.h"
#include "platform/application_list_client.h"
#include "platform/executors.h"
#include "platform/linux/base/xdg_folders.h"
#include "platform/linux/shortcuts/shortcuts_application.h"
#include "platform/workspace_client.h"

namespace glintboard {

class ApplicationIndex;

// The displays of the user's session. An empty name means none.
struct Displays {
  // The path of the compositor's socket.
  std::string wayland = {};
  // The name as in DISPLAY.
  std::string x11 = {};
};
// The displays that the environment names.
Displays displaysOfEnvironment();

// Follows the installed and running applications and their windows. The clients may outlive it and
// then answer from the last known state; `executors` must outlive both. It may be destroyed while
// an operation runs.
class LinuxApplications {
 public:
  LinuxApplications(Executors& executors, const XdgFolders& folders, const Displays& displays = {});
  ~LinuxApplications();
  LinuxApplications(const LinuxApplications&) = delete;
  LinuxApplications& operator=(const LinuxApplications&) = delete;

  WorkspaceClient workspaceClient();
  ApplicationIconClient iconClient() { return icons_; }
  ApplicationListClient listClient();
  // Opens a folder in the user's file manager.
  FolderOpener folderOpener();
  // Whether to look for running applications that this agent did not start. `scanned` is called on
  // the service loop after the first look. Any thread.
  void watchRunningApplications(bool watch, std::function<void()> scanned = nullptr);
  // The installed applications, for those who need more of an entry than its file. Any thread.
  std::shared_ptr<const ApplicationIndex> index() const;

 private:
  struct Parts;
  class Snapshot;

  std::shared_ptr<Parts> parts_;
  ApplicationIconClient icons_;
};

}  // namespace glintboard
