// SPDX-License-Identifier: MIT
#include "platform/linux/linux_applications.h"

#include <QtGlobal>
#include <algorithm>
#include <cstdlib>

#include "platform/linux/applications/application_icons.h"
#include "platform/linux/applications/application_index.h"
#include "platform/linux/applications/application_launcher.h"
#include "platform/linux/applications/application_list.h"
#include "platform/linux/applications/running_applications.h"
#include "platform/linux/base/glib_pointers.h"
#include "platform/linux/windows/wayland_windows.h"
#include "platform/linux/windows/x11_windows.h"
#include "platform/run_on.h"
#include "platform/user_error.h"

namespace glintboard {

// What the clients share. They may outlive the owner.
struct LinuxApplications::Parts {
  asio::any_io_executor service;
  asio::any_io_executor workers;
  std::shared_ptr<ApplicationIndex> index;
  std::shared_ptr<RunningApplications> running;
  // The one to be asked first comes first.
  std::vector<std::shared_ptr<WindowSystem>> windows;
};

// What was known of all applications at one moment.
class LinuxApplications::Snapshot {
 public:
  explicit Snapshot(const Parts& parts)
      : installed_(parts.index->current()), running_(parts.running->current()) {
    for (const auto& system : parts.windows) {
      if (auto applications = system->applications(); !applications->empty()) {
        windows_.push_back(std::move(applications));
      }
    }
  }

  const DesktopEntry* entry(const std::string& bundleId) const {
    return installed_->withBundleId(bundleId);
  }
  bool isRunning(const std::string& bundleId) const {
    return (!running_->empty() || !windows_.empty()) &&
           (hasWindow(bundleId) || hasProcess(bundleId));
  }
  bool hasWindow(const std::string& bundleId) const {
    const auto* known = entry(bundleId);
    return known != nullptr && std::any_of(windows_.begin(), windows_.end(), [&](const auto& each) {
             return each->contains(installed_->bundleIdOf(*known));
           });
  }

 private:
  bool hasProcess(const std::string& bundleId) const {
    const auto* known = entry(bundleId);
    return known != nullptr && running_->contains(installed_->bundleIdOf(*known));
  }

  std::shared_ptr<const InstalledApplications> installed_;
  std::shared_ptr<const RunningApplications::Snapshot> running_;
  std::vector<std::shared_ptr<const std::set<std::string>>> windows_;
};

namespace {

constexpr std::chrono::seconds activationDeadline{2};

// Runs `work` on the service loop, without leaving it if the caller is there.
template <class T>
Awaitable<T> onService(asio::any_io_executor service, Awaitable<T> work) {
  const asio::any_io_executor current = co_await asio::this_coro::executor;
  if (current != service) {
    co_return co_await asio::co_spawn(service, std::move(work), asio::use_awaitable);
  }
  co_return co_await std::move(work);
}

template <class Parts>
Awaitable<LaunchToken> launchToken(std::shared_ptr<Parts> parts) {
  LaunchToken token;
  for (const auto& system : parts->windows) {
    auto asking = system->launchToken();
    auto given = co_await std::move(asking);
    if (token.startupId.empty()) {
      token.startupId = std::move(given.startupId);
    }
    if (token.activationToken.empty()) {
      token.activationToken = std::move(given.activationToken);
    }
  }
  co_return token;
}

template <class Parts>
Awaitable<bool> launch(std::shared_ptr<Parts> parts,
                       std::shared_ptr<const InstalledApplications> installed,
                       const DesktopEntry* entry, std::vector<std::string> uris) {
  auto asking = onService(parts->service, launchToken(parts));
  const auto token = co_await std::move(asking);
  auto launching = runOn(parts->workers, [installed, entry, uris, token, running = parts->running] {
    const auto started = launchApplication(*entry, uris, token);
    if (started) {
      running->launched(installed->bundleIdOf(*entry), *started);
    }
  });
  co_await std::move(launching);
  co_return true;
}

template <class Parts>
Awaitable<bool> open(std::shared_ptr<Parts> parts, ApplicationLocation application) {
  auto installed = parts->index->current();
  const auto* entry = installed->atPath(application.path);
  if (entry == nullptr) {
    throw UserError(QT_TRANSLATE_NOOP("UserError", "The application is no longer installed"));
  }
  auto launching = launch(parts, std::move(installed), entry, {});
  co_return co_await std::move(launching);
}

template <class Parts>
Awaitable<bool> openFolder(std::shared_ptr<Parts> parts, std::filesystem::path folder) {
  auto installed = parts->index->current();
  const auto* fileManager = installed->withBundleId(fileManagerBundleId);
  if (fileManager == nullptr) {
    throw UserError(QT_TRANSLATE_NOOP("UserError", "There is no application that opens folders"));
  }
  auto making = runOn(parts->workers, [folder] {
    std::filesystem::create_directories(folder);
    const GLibPointer<char> uri(g_filename_to_uri(folder.c_str(), nullptr, nullptr));
    return std::string(uri.get());
  });
  const auto uri = co_await std::move(making);
  auto launching =
      launch(parts, std::move(installed), fileManager, std::vector<std::string>(1, uri));
  co_return co_await std::move(launching);
}

// On the service loop.
template <class Parts>
Awaitable<bool> bringForward(std::shared_ptr<Parts> parts, std::string bundleId, bool hasWindow) {
  if (hasWindow) {
    for (const auto& system : parts->windows) {
      auto activating = system->activate(bundleId);
      const bool done = co_await std::move(activating);
      if (done) {
        co_return true;
      }
    }
    co_return false;
  }
  const auto installed = parts->index->current();
  const auto* entry = installed->withBundleId(bundleId);
  if (entry == nullptr || !entry->dbusActivatable) {
    co_return false;
  }
  auto asking = launchToken(parts);
  const auto token = co_await std::move(asking);
  // A worker may be long in coming; the caller must not wait longer for that.
  auto activating = runBefore(activationDeadline, parts->workers, [installed, entry, token] {
    return activateOverDBus(*entry, token, activationDeadline);
  });
  const auto accepted = co_await std::move(activating);
  co_return accepted.value_or(false);
}

}  // namespace

Displays displaysOfEnvironment() {
  const auto variable = [](const char* name) {
    const char* value = std::getenv(name);
    return std::string(value == nullptr ? "" : value);
  };
  Displays displays{.wayland = variable("WAYLAND_DISPLAY"), .x11 = variable("DISPLAY")};
  if (!displays.wayland.empty() && !displays.wayland.starts_with('/')) {
    displays.wayland = variable("XDG_RUNTIME_DIR") + "/" + displays.wayland;
  }
  return displays;
}

LinuxApplications::LinuxApplications(Executors& executors, const XdgFolders& folders,
                                     const Displays& displays)
    : parts_(std::make_shared<Parts>()) {
  parts_->service = executors.service();
  parts_->workers = executors.workers();
  parts_->index = ApplicationIndex::open(executors, folders);
  const auto processes = std::make_shared<CurrentApplicationMatcher>(parts_->index);
  parts_->running = RunningApplications::create(executors, processes);
  icons_ = applicationIcons(parts_->index, folders);
  const auto windows = [&] { return OpenWindows::create(executors, parts_->index, processes); };
  std::shared_ptr<X11Windows> x11;
  if (!displays.x11.empty()) {
    x11 = std::make_shared<X11Windows>(executors, windows(), displays.x11);
  }
  if (!displays.wayland.empty()) {
    // Its list holds the X11 windows too; where it has none, X11 tells of those at least. Asking
    // X11 for nothing would start an X server that nobody needs.
    const auto wayland =
        std::make_shared<WaylandWindows>(executors, windows(), displays.wayland, [x11] {
          if (x11) {
            x11->start();
          }
        });
    wayland->start();
    parts_->windows.push_back(wayland);
  } else if (x11) {
    x11->start();
  }
  if (x11) {
    parts_->windows.push_back(x11);
  }
}

LinuxApplications::~LinuxApplications() {
  parts_->index->stop();
  parts_->running->watch(false);
  for (const auto& system : parts_->windows) {
    system->stop();
  }
}

WorkspaceClient LinuxApplications::workspaceClient() {
  WorkspaceClient client;
  client.urlForApplication =
      [parts = parts_](const std::string& bundleId) -> std::optional<ApplicationLocation> {
    const auto installed = parts->index->current();
    const auto* entry = installed->withBundleId(bundleId);
    return entry == nullptr ? std::nullopt : std::optional(ApplicationLocation{entry->path});
  };
  client.runningApplication =
      [parts = parts_](const std::string& bundleId) -> std::optional<RunningApplicationClient> {
    if (!Snapshot(*parts).isRunning(bundleId)) {
      return std::nullopt;
    }
    return RunningApplicationClient{[parts, bundleId] {
      return onService(parts->service,
                       bringForward(parts, bundleId, Snapshot(*parts).hasWindow(bundleId)));
    }};
  };
  client.currentStates = [parts = parts_] {
    const auto moment = std::make_shared<const Snapshot>(*parts);
    return ApplicationStates{
        [moment](const std::string& bundleId) { return moment->entry(bundleId) != nullptr; },
        [moment](const std::string& bundleId) { return moment->isRunning(bundleId); }};
  };
  client.openApplication = [parts = parts_](ApplicationLocation application) {
    return open(parts, std::move(application));
  };
  return client;
}

FolderOpener LinuxApplications::folderOpener() {
  return [parts = parts_](std::filesystem::path folder) {
    return openFolder(parts, std::move(folder));
  };
}

ApplicationListClient LinuxApplications::listClient() {
  return applicationList(parts_->index);
}

void LinuxApplications::watchRunningApplications(bool watch, std::function<void()> looked) {
  parts_->running->watch(watch, std::move(looked));
}

std::shared_ptr<const ApplicationIndex> LinuxApplications::index() const {
  return parts_->index;
}

}  // namespace glintboard
