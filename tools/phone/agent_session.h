// SPDX-License-Identifier: MIT
// A conversation with the agent in messages of the protocol.
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include "protocol/payloads.h"
#include "protocol/wire_codec.h"
#include "tools/phone/failure.h"
#include "tools/phone/phone_connection.h"

namespace glintboard::phone {

// A received text and the envelope read from it.
struct ReceivedMessage {
  MessageEnvelope envelope;
  std::string text;
};

// Requests and their replies, each waited for no longer than the session's timeout. Every operation
// throws PhoneFailure when the connection breaks, the time is up or the agent sends what the
// protocol does not know.
class AgentSession {
 public:
  AgentSession(PhoneConnection connection, std::chrono::milliseconds timeout)
      : connection_(std::move(connection)), timeout_(timeout) {}

  Deadline deadline() const { return std::chrono::steady_clock::now() + timeout_; }

  template <class Payload>
  void send(const WireMessage<Payload>& message) {
    sendText(WireCodec::encodeString(message));
  }
  void sendText(std::string text) { connection_.send(std::move(text), deadline()); }

  // The next message, or none by the deadline.
  std::optional<ReceivedMessage> receive(Deadline deadline);

  using Others = std::function<void(const ReceivedMessage&)>;
  // The reply to the request of that id; what arrives before it goes to `others`.
  ReceivedMessage replyTo(Uuid id, const Others& others = {});

  // Sends a request and waits for its reply.
  template <class Payload>
  ReceivedMessage ask(const WireMessage<Payload>& request) {
    send(request);
    return replyTo(request.id);
  }

  // The decks as they are now. A phone that the agent does not know fails with "unauthorized".
  DecksSnapshotPayload sync();

 private:
  PhoneConnection connection_;
  std::chrono::milliseconds timeout_;
};

// The payload of a message, or PhoneFailure ("protocol").
template <class Payload>
Payload payloadOf(const ReceivedMessage& message) {
  auto decoded = WireCodec::decode<Payload>(message.text);
  if (!decoded) {
    throw PhoneFailure(ExitCode::refused, "protocol",
                       "The agent sent a " + message.envelope.type +
                           " that is not of the protocol (" + decoded.error().reason + ").");
  }
  return std::move(decoded->payload);
}

bool isOfType(const ReceivedMessage& message, MessageType type);
// Throws the refusal that a `pair.fail`, `app.error`, `action.error` or `shortcut.error` carries,
// and "protocol" for a message that does not belong here. Call it for anything but the ok hoped
// for.
[[noreturn]] void throwRefusal(const ReceivedMessage& message);

}  // namespace glintboard::phone
