// SPDX-License-Identifier: MIT
// The envelope of every message.
#pragma once

#include <string>

#include "protocol/enum_text.h"
#include "protocol/record.h"
#include "protocol/uuid.h"

namespace glintboard {

// On the wire: an object with these three members, all required. The type is a plain text, so that
// a message of a type that this side does not know can be represented.
template <class Payload>
struct WireMessage {
  std::string type;
  Uuid id{};
  Payload payload;

  bool operator==(const WireMessage&) const = default;
  BOOST_DESCRIBE_CLASS(WireMessage, (), (type, id, payload), (), ())
};

// The part of a message that is read before its payload.
struct MessageEnvelope {
  std::string type;
  Uuid id{};
};
BOOST_DESCRIBE_STRUCT(MessageEnvelope, (), (type, id))

enum class MessageType {
  pairRequest,
  pairOK,
  pairFail,
  deckSync,
  deckSnapshot,
  decksSnapshot,
  appLaunch,
  appFocus,
  appOK,
  appError,
  ping,
  pong,
  appIconRequest,
  appIcon,
  actionRun,
  actionOK,
  actionError,
  shortcutRun,
  shortcutOK,
  shortcutError,
};

template <>
struct EnumText<MessageType> {
  static constexpr EnumTable<20, MessageType> table{{
      {MessageType::pairRequest, "pair.request"},
      {MessageType::pairOK, "pair.ok"},
      {MessageType::pairFail, "pair.fail"},
      {MessageType::deckSync, "deck.sync"},
      {MessageType::deckSnapshot, "deck.snapshot"},
      {MessageType::decksSnapshot, "decks.snapshot"},
      {MessageType::appLaunch, "app.launch"},
      {MessageType::appFocus, "app.focus"},
      {MessageType::appOK, "app.ok"},
      {MessageType::appError, "app.error"},
      {MessageType::ping, "ping"},
      {MessageType::pong, "pong"},
      {MessageType::appIconRequest, "app.icon.request"},
      {MessageType::appIcon, "app.icon"},
      {MessageType::actionRun, "action.run"},
      {MessageType::actionOK, "action.ok"},
      {MessageType::actionError, "action.error"},
      {MessageType::shortcutRun, "shortcut.run"},
      {MessageType::shortcutOK, "shortcut.ok"},
      {MessageType::shortcutError, "shortcut.error"},
  }};
};

}  // namespace glintboard
