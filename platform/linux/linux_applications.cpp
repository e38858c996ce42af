// SPDX-License-Identifier: MIT
#include "platform/linux/linux_applications.h"

#include <QtGlobal>
#include <algorithm>
#include <cstdlib>
#include <functional>

#include "platform/actor.h"
#include "platform/linux/applications/application_icons.h"
#include "platform/linux/applications/application_index.h"
#include "platform/linux/applications/application_launcher.h"
#include "platform/linux/applications/application_list.h"
#include "platform/linux/applications/running_applications.h"
#include "platform/linux/base/glib_pointers.h"
#include "platform/linux/windows/display_windows.h"
#include "platform/linux/windows/wayland_session.h"
#include "platform/linux/windows/x11_session.h"
#include "platform/run_on.h"
#include "platform/user_error.h"

namespace glintboard {

namespace {

constexpr std::chrono::seconds activationDeadline{2};

}  // namespace

// The state that the clients share and may use after the owner's destruction. An actor on the
// service loop. Its coroutines keep it alive by the shared pointer that each is given.
struct LinuxApplications::Parts : Actor {
  using Self = std::shared_ptr<Parts>;

  Parts(Executors& executors, const XdgFolders& folders)
      : Actor(executors.service()),
        workers(executors.workers()),
        index(ApplicationIndex::open(executors, folders)),
        processes(std::make_shared<CurrentApplicationMatcher>(index)),
        running(RunningApplications::create(executors, processes)) {}

  // Starts an application.
  static Awaitable<bool> open(Self self, ApplicationLocation application);
  // Creates a folder if it is missing and opens it in the file manager.
  static Awaitable<bool> openFolder(Self self, std::filesystem::path folder);
  // Brings a running application to the front. True when the desktop has done so.
  static Awaitable<bool> activate(Self self, std::string bundleId);

  const asio::any_io_executor workers;
  const std::shared_ptr<ApplicationIndex> index;
  const std::shared_ptr<CurrentApplicationMatcher> processes;
  const std::shared_ptr<RunningApplications> running;
  // In the order in which they are asked.
  std::vector<std::shared_ptr<DisplayWindows>> windows;

 private:
  static Awaitable<LaunchToken> launchToken(Self self);
  static Awaitable<bool> launch(Self self, std::shared_ptr<const InstalledApplications> installed,
                                const DesktopEntry* entry, std::vector<std::string> uris);
  static Awaitable<bool> activateWindows(Self self, std::string bundleId);
};

// The state of all applications at one time.
class LinuxApplications::Snapshot {
 public:
  explicit Snapshot(const Parts& parts)
      : installed_(parts.index->current()), running_(parts.running->current()) {
    for (const auto& display : parts.windows) {
      if (auto applications = display->applications(); !applications->empty()) {
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

Awaitable<bool> LinuxApplications::Parts::open(Self self, ApplicationLocation application) {
  auto installed = self->index->current();
  const auto* entry = installed->atPath(application.path);
  if (entry == nullptr) {
    throw UserError(QT_TRANSLATE_NOOP("UserError", "The application is no longer installed"));
  }
  const std::vector<std::string> uris;
  co_return co_await launch(self, std::move(installed), entry, uris);
}

Awaitable<bool> LinuxApplications::Parts::openFolder(Self self, std::filesystem::path folder) {
  auto installed = self->index->current();
  const auto* fileManager = installed->withBundleId(fileManagerBundleId);
  if (fileManager == nullptr) {
    throw UserError(QT_TRANSLATE_NOOP("UserError", "There is no application that opens folders"));
  }
  auto creating = runOn(self->workers, [folder] {
    std::filesystem::create_directories(folder);
    const GLibPointer<char> uri(g_filename_to_uri(folder.c_str(), nullptr, nullptr));
    return std::vector<std::string>(1, uri.get());
  });
  const auto uris = co_await std::move(creating);
  co_return co_await launch(self, std::move(installed), fileManager, uris);
}

Awaitable<bool> LinuxApplications::Parts::activate(Self self, std::string bundleId) {
  auto& actor = *self;
  return actor.enter(activateWindows(std::move(self), std::move(bundleId)));
}

Awaitable<bool> LinuxApplications::Parts::launch(
    Self self, std::shared_ptr<const InstalledApplications> installed, const DesktopEntry* entry,
    std::vector<std::string> uris) {
  const auto token = co_await self->enter(launchToken(self));
  auto launching = runOn(self->workers, [self, installed, entry, uris, token] {
    const auto started = launchApplication(*entry, uris, token);
    if (started) {
      self->running->launched(installed->bundleIdOf(*entry), *started);
    }
  });
  co_await std::move(launching);
  co_return true;
}

// On the service loop.
Awaitable<LaunchToken> LinuxApplications::Parts::launchToken(Self self) {
  LaunchToken token;
  for (const auto& display : self->windows) {
    auto given = co_await display->launchToken();
    if (token.startupId.empty()) {
      token.startupId = std::move(given.startupId);
    }
    if (token.activationToken.empty()) {
      token.activationToken = std::move(given.activationToken);
    }
  }
  co_return token;
}

// On the service loop.
Awaitable<bool> LinuxApplications::Parts::activateWindows(Self self, std::string bundleId) {
  if (Snapshot(*self).hasWindow(bundleId)) {
    for (const auto& display : self->windows) {
      const bool done = co_await display->activate(bundleId);
      if (done) {
        co_return true;
      }
    }
    co_return false;
  }
  const auto installed = self->index->current();
  const auto* entry = installed->withBundleId(bundleId);
  if (entry == nullptr || !entry->dbusActivatable) {
    co_return false;
  }
  const auto token = co_await launchToken(self);
  // The deadline includes the time until a worker is free.
  auto activating = runBefore(activationDeadline, self->workers, [installed, entry, token] {
    return activateOverDBus(*entry, token, activationDeadline);
  });
  const auto accepted = co_await std::move(activating);
  co_return accepted.value_or(false);
}

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
    : parts_(std::make_shared<Parts>(executors, folders)),
      icons_(applicationIcons(parts_->index, folders)) {
  const auto makeWindows = [&](auto connect) {
    auto open = OpenWindows::create(executors, parts_->index, parts_->processes);
    return std::make_shared<DisplayWindows>(executors, open, std::bind_front(connect, open));
  };
  std::shared_ptr<DisplayWindows> x11;
  if (!displays.x11.empty()) {
    x11 = makeWindows([service = executors.service(), workers = executors.workers(),
                       display = displays.x11](const std::shared_ptr<OpenWindows>& open) {
      return X11Session::open(service, workers, display, open);
    });
  }
  if (displays.wayland.empty()) {
    if (x11) {
      x11->start();
    }
  } else {
    // The compositor's list includes X11 windows. X11 is asked only where there is no such list,
    // because connecting would start an X server that nothing else uses.
    const auto startX11 = [x11] {
      if (x11) {
        x11->start();
      }
    };
    const auto wayland = makeWindows([service = executors.service(), socket = displays.wayland,
                                      startX11](const std::shared_ptr<OpenWindows>& open) {
      return WaylandSession::open(service, socket, open, startX11);
    });
    wayland->start();
    parts_->windows.push_back(wayland);
  }
  if (x11) {
    parts_->windows.push_back(x11);
  }
}

LinuxApplications::~LinuxApplications() {
  parts_->index->stop();
  parts_->running->watch(false);
  for (const auto& display : parts_->windows) {
    display->stop();
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
    return RunningApplicationClient{[parts, bundleId] { return Parts::activate(parts, bundleId); }};
  };
  client.currentStates = [parts = parts_] {
    const auto snapshot = std::make_shared<const Snapshot>(*parts);
    return ApplicationStates{
        [snapshot](const std::string& bundleId) { return snapshot->entry(bundleId) != nullptr; },
        [snapshot](const std::string& bundleId) { return snapshot->isRunning(bundleId); }};
  };
  client.openApplication = [parts = parts_](ApplicationLocation application) {
    return Parts::open(parts, std::move(application));
  };
  return client;
}

FolderOpener LinuxApplications::folderOpener() {
  return [parts = parts_](std::filesystem::path folder) {
    return Parts::openFolder(parts, std::move(folder));
  };
}

ApplicationListClient LinuxApplications::listClient() {
  return applicationList(parts_->index);
}

void LinuxApplications::watchRunningApplications(bool watch, std::function<void()> scanned) {
  parts_->running->watch(watch, std::move(scanned));
}

std::shared_ptr<const ApplicationIndex> LinuxApplications::index() const {
  return parts_->index;
}

}  // namespace glintboard
