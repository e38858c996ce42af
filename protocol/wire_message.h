// SPDX-License-Identifier: MIT
// The envelope of every message and the closed set of message types.
#pragma once

#include <string>

#include "protocol/enum_text.h"
#include "protocol/record.h"
#include "protocol/uuid.h"

namespace glintboard {

// On the wire: one JSON object in one text frame, with these three members, all required:
// {"id":"0F8FAD5B-…","payload":{…},"type":"ping"}. `Payload` is a record of `protocol/payloads.h`.
template <class Payload>
struct WireMessage {
  // A raw value of `MessageType`. A text, so that an unknown type can be represented too.
  std::string type;
  // Fresh for a request, a push and an `app.icon`; a reply has its request's.
  Uuid id{};
  // The record that belongs to the type; {} for `deck.sync`.
  Payload payload;

  bool operator==(const WireMessage&) const = default;
  BOOST_DESCRIBE_CLASS(WireMessage, (), (type, id, payload), (), ())
};

// The part of a message that is read first; `type` decides which payload is decoded then. An object
// without `type` or `id`, or with an `id` that is no UUID, is not a message.
struct MessageEnvelope {
  std::string type;
  Uuid id{};
};
BOOST_DESCRIBE_STRUCT(MessageEnvelope, (), (type, id))

// Every type of the protocol. The sender and the payload of each are with its record in
// `protocol/payloads.h`; what the agent accepts is in `protocol/wire_message_parser.h`.
enum class MessageType {
  // Pairing.
  pairRequest,
  pairOK,
  pairFail,
  // Decks. `deckSnapshot`, of a single deck, is defined but never sent.
  deckSync,
  deckSnapshot,
  decksSnapshot,
  // Applications: requests of the phone, then the agent's replies.
  appLaunch,
  appFocus,
  appOK,
  appError,
  // Round trip.
  ping,
  pong,
  // Icons of applications and Shortcuts.
  appIconRequest,
  appIcon,
  // Actions of the computer, then Shortcuts: request, success, failure.
  actionRun,
  actionOK,
  actionError,
  shortcutRun,
  shortcutOK,
  shortcutError,
};

// The `type` of a message on the wire.
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
