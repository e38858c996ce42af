// SPDX-License-Identifier: MIT
// Answers Shortcut requests.
#pragma once

#include <variant>

#include "agent_core/shortcuts/shortcuts_runner.h"
#include "agent_core/wire_handler.h"
#include "protocol/wire_message.h"

namespace glintboard {

using ShortcutMessageResponse =
    std::variant<WireMessage<ShortcutOKPayload>, WireMessage<ShortcutErrorPayload>>;

// Answers with "shortcut.ok" or "shortcut.error" and the request's id. Any executor. Never throws.
class ShortcutMessageHandler {
 public:
  // With the default runner, on the live platform.
  ShortcutMessageHandler();
  explicit ShortcutMessageHandler(ShortcutsRunner runner) : runner_(std::move(runner)) {}

  Awaitable<ShortcutMessageResponse> handleRun(std::string shortcutIdentifier,
                                               Uuid messageId) const;

 private:
  ShortcutsRunner runner_;
};

// Answers raw "shortcut.run" messages.
class ShortcutWireHandler {
 public:
  explicit ShortcutWireHandler(ShortcutMessageHandler handler) : handler_(std::move(handler)) {}

  Awaitable<WireReply> handle(std::string bytes) const;

 private:
  ShortcutMessageHandler handler_;
};

}  // namespace glintboard
