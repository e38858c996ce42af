// SPDX-License-Identifier: MIT
#include <unistd.h>

#include <algorithm>
#include <array>

#include "protocol/message_factory.h"
#include "protocol/pairing_qr_payload.h"
#include "tools/phone/command_context.h"

namespace glintboard::phone {
namespace {

std::string hostName() {
  std::array<char, 256> name{};
  if (::gethostname(name.data(), name.size() - 1) != 0 || name[0] == '\0') {
    return "Glintboard Phone";
  }
  return name.data();
}

// The token becomes the value of an HTTP header, so only visible ASCII is accepted.
void requireUsableToken(const std::string& token) {
  if (token.empty() || !std::ranges::all_of(token, [](char c) { return c > ' ' && c < '\x7F'; })) {
    throw PhoneFailure(ExitCode::refused, "protocol", "The agent issued an unusable token.");
  }
}

}  // namespace

void pairCommand(const CommandContext& context) {
  auto method = PairingMethod::pin;
  std::string secret = context.arguments.secret;
  PhoneState state = context.stateFile.load();
  std::optional<std::string> wanted;
  if (const auto address = PairingQRPayload::parse(secret)) {
    method = PairingMethod::qr;
    secret = address->code;
    wanted = address->macName;
  } else if (secret.find(':') != std::string::npos) {
    throw usageFailure("This is not a whole pairing address. Copy it once more, in quotes.");
  }
  context.stateFile.save(state);  // Keeps the device id even if this pairing fails.

  const FoundAgent agent = context.chooseAgent(wanted);
  auto session = context.open(agent, std::nullopt);
  const auto reply = session.ask(MessageFactory::pairRequest(
      method, secret, context.arguments.name.value_or(hostName()), state.deviceId, randomUuid()));
  if (!isOfType(reply, MessageType::pairOK)) {
    throwRefusal(reply);
  }
  const auto payload = payloadOf<PairOKPayload>(reply);
  requireUsableToken(payload.token);
  state.token = payload.token;
  state.agentName = agent.name ? agent.name : wanted;
  context.stateFile.save(state);
  context.output.line("Paired. Show the keys with: glintboard-phone decks");
  context.output.record(
      {{"ok", true}, {"deviceId", uuidText(state.deviceId)}, {"token", payload.token}});
}

void forgetCommand(const CommandContext& context) {
  PhoneState state = context.stateFile.load();
  const bool wasPaired = state.token.has_value();
  if (wasPaired) {
    state.token.reset();
    state.agentName.reset();
    context.stateFile.save(state);
  }
  context.output.line(wasPaired ? "The pairing is forgotten." : "There is no pairing to forget.");
  context.output.record({{"ok", true}, {"wasPaired", wasPaired}});
}

}  // namespace glintboard::phone
