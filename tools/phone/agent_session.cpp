// SPDX-License-Identifier: MIT
#include "tools/phone/agent_session.h"

#include "protocol/message_factory.h"

namespace glintboard::phone {
namespace {

template <TextEnum Code>
[[noreturn]] void refuse(Code code, const std::optional<std::string>& message) {
  const std::string name(rawValue(code));
  std::string text = message.value_or("The agent refused (" + name + ").");
  if (name == "unauthorized") {
    text += " The agent does not know this phone any more. Run: glintboard-phone pair PIN";
  } else if (name == "already_paired") {
    text += " (On the computer: Show Pairing Code, or Unpair.)";
  }
  throw PhoneFailure(ExitCode::refused, name, text);
}

}  // namespace

bool isOfType(const ReceivedMessage& message, MessageType type) {
  return message.envelope.type == rawValue(type);
}

void throwRefusal(const ReceivedMessage& message) {
  if (isOfType(message, MessageType::pairFail)) {
    const auto payload = payloadOf<PairFailPayload>(message);
    refuse(payload.reason, payload.message);
  }
  if (isOfType(message, MessageType::appError)) {
    const auto payload = payloadOf<AppErrorPayload>(message);
    refuse(payload.code, payload.message);
  }
  if (isOfType(message, MessageType::actionError)) {
    const auto payload = payloadOf<ActionErrorPayload>(message);
    refuse(payload.code, payload.message);
  }
  if (isOfType(message, MessageType::shortcutError)) {
    const auto payload = payloadOf<ShortcutErrorPayload>(message);
    refuse(payload.code, payload.message);
  }
  throw PhoneFailure(ExitCode::refused, "protocol",
                     "The agent answered with an unexpected " + message.envelope.type + ".");
}

std::optional<ReceivedMessage> AgentSession::receive(Deadline deadline) {
  auto text = connection_.receive(deadline);
  if (!text) {
    return std::nullopt;
  }
  auto envelope = decodeJson<MessageEnvelope>(*text);
  if (!envelope) {
    throw PhoneFailure(
        ExitCode::refused, "protocol",
        "The agent sent something that is no message (" + envelope.error().reason + ").");
  }
  return ReceivedMessage{std::move(*envelope), std::move(*text)};
}

ReceivedMessage AgentSession::replyTo(Uuid id, const Others& others) {
  const Deadline until = deadline();
  for (;;) {
    auto message = receive(until);
    if (!message) {
      throw PhoneFailure(ExitCode::timeout, "timeout",
                         "The agent did not answer in time. Try again, or wait longer with "
                         "--timeout SECONDS.");
    }
    if (message->envelope.id == id) {
      return std::move(*message);
    }
    if (others) {
      others(*message);
    }
  }
}

DecksSnapshotPayload AgentSession::sync() {
  const auto reply = ask(MessageFactory::deckSync(randomUuid()));
  if (!isOfType(reply, MessageType::decksSnapshot)) {
    throwRefusal(reply);
  }
  return payloadOf<DecksSnapshotPayload>(reply);
}

}  // namespace glintboard::phone
