// SPDX-License-Identifier: MIT
// Answers application requests.
#pragma once

#include <variant>

#include "agent_core/apps/app_launcher.h"
#include "agent_core/wire_handler.h"
#include "protocol/wire_message.h"

namespace glintboard {

using AppMessageResponse = std::variant<WireMessage<AppOKPayload>, WireMessage<AppErrorPayload>>;

// Answers with "app.ok" or "app.error" and the request's id. Any executor. Never throws.
class AppMessageHandler {
 public:
  explicit AppMessageHandler(AppLauncher launcher) : launcher_(std::move(launcher)) {}

  Awaitable<AppMessageResponse> handleLaunch(std::string bundleId, Uuid messageId) const;
  Awaitable<AppMessageResponse> handleFocus(std::string bundleId, Uuid messageId) const;

 private:
  Awaitable<AppMessageResponse> handle(AppLauncherAction action, std::string bundleId,
                                       Uuid messageId) const;

  AppLauncher launcher_;
};

// Answers raw "app.launch" and "app.focus" messages.
class AppWireHandler {
 public:
  explicit AppWireHandler(AppMessageHandler handler) : handler_(std::move(handler)) {}
  explicit AppWireHandler(AppLauncher launcher) : handler_(std::move(launcher)) {}

  Awaitable<WireReply> handle(std::string bytes) const;

 private:
  AppMessageHandler handler_;
};

}  // namespace glintboard
