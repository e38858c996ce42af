#include "platform/linux/shortcuts_application.h"

#include <gio/gdesktopappinfo.h>

#include <QtGlobal>

#include "platform/linux/application_launcher.h"
#include "platform/linux/glib_pointers.h"
#include "platform/run_on.h"
#include "platform/user_error.h"

namespace glintboard {

namespace {

DesktopEntry fileManager() {
  const GObjectPointer<GAppInfo> handler(g_app_info_get_default_for_type("inode/directory", FALSE));
  const char* file = handler && G_IS_DESKTOP_APP_INFO(handler.get())
                         ? g_desktop_app_info_get_filename(G_DESKTOP_APP_INFO(handler.get()))
                         : nullptr;
  auto entry =
      file == nullptr
          ? std::nullopt
          : readDesktopEntry(
                file, std::filesystem::path(g_app_info_get_id(handler.get())).stem().string());
  if (!entry) {
    throw UserError(QT_TRANSLATE_NOOP("UserError", "There is no application that opens folders"));
  }
  return std::move(*entry);
}

Awaitable<bool> openFolder(asio::any_io_executor workers, std::filesystem::path folder) {
  auto launch = runOn(workers, [folder] {
    std::filesystem::create_directories(folder);
    const GLibPointer<char> uri(g_filename_to_uri(folder.c_str(), nullptr, nullptr));
    launchApplication(fileManager(), {uri.get()});
  });
  co_await std::move(launch);
  co_return true;
}

}  // namespace

WorkspaceClient withShortcutsApplication(WorkspaceClient workspace, asio::any_io_executor workers,
                                         std::filesystem::path folder) {
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
  workspace.openApplication = [others = std::move(workspace.openApplication), workers,
                               folder](ApplicationLocation application) {
    return application.path == folder ? openFolder(workers, folder)
                                      : others(std::move(application));
  };
  return workspace;
}

}  // namespace glintboard
