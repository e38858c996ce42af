// SPDX-License-Identifier: MIT
#include "platform/linux/shortcuts/shortcuts_application.h"

namespace glintboard {

WorkspaceClient withShortcutsApplication(WorkspaceClient workspace, std::filesystem::path folder,
                                         FolderOpener open) {
  workspace.currentStates = [others = workspace] {
    ApplicationStates states = others.states();
    states.isInstalled = [installed = std::move(states.isInstalled)](const std::string& bundleId) {
      return bundleId == shortcutsBundleId || installed(bundleId);
    };
    return states;
  };
  workspace.urlForApplication = [others = std::move(workspace.urlForApplication),
                                 folder](const std::string& bundleId) {
    return bundleId == shortcutsBundleId ? std::optional(ApplicationLocation{folder})
                                         : others(bundleId);
  };
  workspace.openApplication = [others = std::move(workspace.openApplication),
                               open = std::move(open), folder](ApplicationLocation application) {
    return application.path == folder ? open(folder) : others(std::move(application));
  };
  return workspace;
}

}  // namespace glintboard
