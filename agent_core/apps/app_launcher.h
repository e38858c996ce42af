// SPDX-License-Identifier: MIT
// Launches and focuses applications.
#pragma once

#include <optional>
#include <string>
#include <variant>

#include "platform/workspace_client.h"
#include "protocol/payloads.h"

namespace glintboard {

enum class AppLauncherAction { launch, focus };

namespace AppLauncherOutcome {
struct Ok {
  std::string bundleId;
  bool operator==(const Ok&) const = default;
};
struct Error {
  std::string bundleId;
  AppErrorCode code{};
  std::optional<std::string> message;
  bool operator==(const Error&) const = default;
};
using Outcome = std::variant<Ok, Error>;
}  // namespace AppLauncherOutcome

// Stateless. Any executor, concurrent calls. Never throws: every failure is an outcome.
class AppLauncher {
 public:
  explicit AppLauncher(WorkspaceClient workspace) : workspace_(std::move(workspace)) {}

  // Brings a running application to the front, or starts one that is installed.
  Awaitable<AppLauncherOutcome::Outcome> launch(std::string bundleId) const;
  // Brings a running application to the front; never starts one.
  Awaitable<AppLauncherOutcome::Outcome> focus(std::string bundleId) const;
  Awaitable<AppLauncherOutcome::Outcome> perform(AppLauncherAction action,
                                                 std::string bundleId) const;

 private:
  WorkspaceClient workspace_;
};

}  // namespace glintboard
