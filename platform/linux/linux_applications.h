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

// The window systems of the user's session. Empty where there is none.
struct Displays {
  // The path of the compositor's socket.
  std::string wayland = {};
  // As in DISPLAY.
  std::string x11 = {};
};
Displays displaysOfEnvironment();

// Owns what is known of applications and follows its changes. The clients may outlive it, and then
// answer from what was known last; `executors` must outlive both. It may be destroyed while an
// operation is under way.
class LinuxApplications {
 public:
  LinuxApplications(Executors& executors, const XdgFolders& folders, const Displays& displays = {});
  ~LinuxApplications();
  LinuxApplications(const LinuxApplications&) = delete;
  LinuxApplications& operator=(const LinuxApplications&) = delete;

  WorkspaceClient workspaceClient();
  ApplicationIconClient iconClient() { return icons_; }
  ApplicationListClient listClient();
  // Opens a folder in the application that has the role of file manager.
  FolderOpener folderOpener();
  // Whether to look for running applications that this agent did not start. `looked` is called on
  // the service loop after the first look. Any thread.
  void watchRunningApplications(bool watch, std::function<void()> looked = nullptr);
  // The installed applications, for those who need more of an entry than its file. Any thread.
  std::shared_ptr<const ApplicationIndex> index() const;

 private:
  struct Parts;
  class Snapshot;

  std::shared_ptr<Parts> parts_;
  ApplicationIconClient icons_;
};

}  // namespace glintboard
