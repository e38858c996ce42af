// SPDX-License-Identifier: MIT
// Requests to the agent and their replies.
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

// Sends requests and waits for each reply up to the session's timeout. Blocks; one thread. Every
// operation throws PhoneFailure if the connection breaks, the timeout passes or the agent violates
// the protocol.
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

  // The next message; none if there is none by the deadline.
  std::optional<ReceivedMessage> receive(Deadline deadline);

  using Others = std::function<void(const ReceivedMessage&)>;
  // The reply to the request of that id. Messages that arrive before it are passed to `others`.
  ReceivedMessage replyTo(Uuid id, const Others& others = {});

  // Sends a request and waits for its reply.
  template <class Payload>
  ReceivedMessage ask(const WireMessage<Payload>& request) {
    send(request);
    return replyTo(request.id);
  }

  // The current decks. Throws PhoneFailure "unauthorized" if the agent does not know this phone.
  DecksSnapshotPayload sync();

 private:
  PhoneConnection connection_;
  std::chrono::milliseconds timeout_;
};

// The payload of a message. Throws PhoneFailure "protocol" if it does not decode.
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
// Throws PhoneFailure with the code of a `pair.fail`, `app.error`, `action.error` or
// `shortcut.error`, and with "protocol" for any other message. For replies that are not the
// expected success.
[[noreturn]] void throwRefusal(const ReceivedMessage& message);

}  // namespace glintboard::phone
