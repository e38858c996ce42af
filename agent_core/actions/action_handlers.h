// SPDX-License-Identifier: MIT
// Answers action requests.
#pragma once

#include <variant>

#include "agent_core/actions/system_action_runner.h"
#include "agent_core/wire_handler.h"
#include "protocol/wire_message.h"

namespace glintboard {

using ActionMessageResponse =
    std::variant<WireMessage<ActionOKPayload>, WireMessage<ActionErrorPayload>>;

// Answers with "action.ok" or "action.error" and the request's id. Use it on the volume lane, which
// it blocks for up to two seconds. Never throws.
class ActionMessageHandler {
 public:
  // With the default runner, on the live platform.
  ActionMessageHandler() = default;
  explicit ActionMessageHandler(SystemActionRunner runner) : runner_(std::move(runner)) {}

  ActionMessageResponse handleRun(const std::string& actionId, Uuid messageId) const;

 private:
  SystemActionRunner runner_;
};

// Answers raw "action.run" messages. As the message handler otherwise.
class ActionWireHandler {
 public:
  explicit ActionWireHandler(ActionMessageHandler handler) : handler_(std::move(handler)) {}

  WireReply handle(std::string_view bytes) const;

 private:
  ActionMessageHandler handler_;
};

}  // namespace glintboard
