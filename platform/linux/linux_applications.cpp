#include "platform/linux/linux_applications.h"

#include <stdexcept>

#include "platform/linux/application_icons.h"
#include "platform/linux/application_index.h"
#include "platform/linux/application_launcher.h"
#include "platform/linux/running_applications.h"
#include "platform/run_on.h"

namespace glintboard {

namespace {

constexpr std::chrono::seconds kActivationDeadline{2};

using Index = std::shared_ptr<const ApplicationIndex>;
using Running = std::shared_ptr<RunningApplications>;

std::optional<ApplicationLocation> locate(const Index& index, const std::string& bundleId) {
  const auto installed = index->current();
  const auto* entry = installed->withBundleId(bundleId);
  return entry == nullptr ? std::nullopt : std::optional(ApplicationLocation{entry->path});
}

Awaitable<bool> open(asio::any_io_executor workers, Index index, Running running,
                     ApplicationLocation application) {
  const auto installed = index->current();
  const auto* entry = installed->atPath(application.path);
  if (entry == nullptr) {
    throw std::runtime_error("The application is no longer installed");
  }
  auto launch = runOn(workers, [installed, entry, running] {
    const auto started = launchApplication(*entry);
    if (started) {
      running->launched(installed->bundleIdOf(*entry), *started);
    }
  });
  co_await std::move(launch);
  co_return true;
}

Awaitable<bool> activate(asio::any_io_executor service, asio::any_io_executor workers, Index index,
                         std::string bundleId) {
  const auto installed = index->current();
  const auto* entry = installed->withBundleId(bundleId);
  if (entry == nullptr || !entry->dbusActivatable) {
    co_return false;
  }
  // A worker may be long in coming; the caller must not wait longer for that.
  auto asking = runBefore(kActivationDeadline, workers, [installed, entry] {
    return activateOverDBus(*entry, kActivationDeadline);
  });
  const auto accepted = co_await asio::co_spawn(service, std::move(asking), asio::use_awaitable);
  co_return accepted.value_or(false);
}

}  // namespace

LinuxApplications::LinuxApplications(Executors& executors, const XdgFolders& folders)
    : service_(executors.service()),
      workers_(executors.workers()),
      index_(ApplicationIndex::open(executors, folders)),
      running_(RunningApplications::create(executors, index_)),
      icons_(applicationIcons(index_, folders)) {}

LinuxApplications::~LinuxApplications() {
  index_->stop();
  running_->watch(false);
}

WorkspaceClient LinuxApplications::workspaceClient() {
  WorkspaceClient client;
  client.urlForApplication = [index = Index(index_)](const std::string& bundleId) {
    return locate(index, bundleId);
  };
  client.runningApplication =
      [service = service_, workers = workers_, index = Index(index_),
       running = running_](const std::string& bundleId) -> std::optional<RunningApplicationClient> {
    const auto installed = index->current();
    const auto* entry = installed->withBundleId(bundleId);
    if (entry == nullptr || !running->current()->contains(installed->bundleIdOf(*entry))) {
      return std::nullopt;
    }
    return RunningApplicationClient{[service, workers, index, bundleId] {
      return activate(service, workers, index, bundleId);
    }};
  };
  client.openApplication = [workers = workers_, index = Index(index_),
                            running = running_](ApplicationLocation application) {
    return open(workers, index, running, std::move(application));
  };
  return client;
}

void LinuxApplications::watchRunningApplications(bool watch) {
  running_->watch(watch);
}

}  // namespace glintboard
