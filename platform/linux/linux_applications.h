// The applications of this desktop, without a window system.
#pragma once

#include <memory>

#include "platform/application_icon_client.h"
#include "platform/executors.h"
#include "platform/linux/xdg_folders.h"
#include "platform/workspace_client.h"

namespace glintboard {

class ApplicationIndex;
class RunningApplications;

// Owns what is known of applications and follows its changes. The clients may outlive it, and then
// answer from what was known last; `executors` must outlive both. It may be destroyed while an
// operation is under way.
class LinuxApplications {
 public:
  LinuxApplications(Executors& executors, const XdgFolders& folders);
  ~LinuxApplications();
  LinuxApplications(const LinuxApplications&) = delete;
  LinuxApplications& operator=(const LinuxApplications&) = delete;

  WorkspaceClient workspaceClient();
  ApplicationIconClient iconClient() { return icons_; }
  // Whether to look for running applications that this agent did not start. Any thread.
  void watchRunningApplications(bool watch);
  // The installed applications, for those who need more of an entry than its file. Any thread.
  std::shared_ptr<const ApplicationIndex> index() const { return index_; }

 private:
  asio::any_io_executor service_;
  asio::any_io_executor workers_;
  std::shared_ptr<ApplicationIndex> index_;
  std::shared_ptr<RunningApplications> running_;
  ApplicationIconClient icons_;
};

}  // namespace glintboard
