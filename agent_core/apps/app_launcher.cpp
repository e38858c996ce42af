// SPDX-License-Identifier: MIT
#include "agent_core/apps/app_launcher.h"

namespace glintboard {

using namespace AppLauncherOutcome;

namespace {

Awaitable<Outcome> activate(RunningApplicationClient application, std::string bundleId) {
  const bool accepted = co_await application.activate();
  if (accepted) {
    co_return Ok{std::move(bundleId)};
  }
  co_return Error{std::move(bundleId), AppErrorCode::focusFailed, "Failed to activate application"};
}

}  // namespace

Awaitable<Outcome> AppLauncher::launch(std::string bundleId) const {
  if (auto running = workspace_.runningApplication(bundleId)) {
    co_return co_await activate(std::move(*running), std::move(bundleId));
  }
  auto location = workspace_.urlForApplication(bundleId);
  if (!location) {
    co_return Error{std::move(bundleId), AppErrorCode::notFound,
                    "No application found for bundle identifier"};
  }
  std::string failure = "Failed to launch application";
  try {
    const bool launched = co_await workspace_.openApplication(std::move(*location));
    if (launched) {
      co_return Ok{std::move(bundleId)};
    }
  } catch (const std::exception& error) {
    failure = error.what();
  }
  co_return Error{std::move(bundleId), AppErrorCode::launchFailed, std::move(failure)};
}

Awaitable<Outcome> AppLauncher::focus(std::string bundleId) const {
  if (auto running = workspace_.runningApplication(bundleId)) {
    co_return co_await activate(std::move(*running), std::move(bundleId));
  }
  co_return Error{std::move(bundleId), AppErrorCode::notFound, "Application is not running"};
}

Awaitable<Outcome> AppLauncher::perform(AppLauncherAction action, std::string bundleId) const {
  return action == AppLauncherAction::launch ? launch(std::move(bundleId))
                                             : focus(std::move(bundleId));
}

}  // namespace glintboard
