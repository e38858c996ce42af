// SPDX-License-Identifier: MIT
#include <algorithm>

#include "protocol/message_factory.h"
#include "tools/phone/command_context.h"

namespace glintboard::phone {
namespace {

std::string joined(const std::vector<std::string>& items) {
  std::string text;
  for (const auto& item : items) {
    text += (text.empty() ? "" : ", ") + item;
  }
  return text.empty() ? "none" : text;
}

}  // namespace

void pingCommand(const CommandContext& context) {
  auto session = context.openPaired();
  // An unknown phone gets neither pongs nor an error; `sync` detects it.
  session.sync();
  std::vector<std::chrono::duration<double>> times;
  for (int number = 0; number < context.arguments.count; ++number) {
    const auto start = std::chrono::steady_clock::now();
    const auto reply = session.ask(MessageFactory::ping(WireDate::now(), randomUuid()));
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    const auto pong = payloadOf<PongPayload>(reply);
    const auto running = pong.runningBundleIds.value_or(std::vector<std::string>{});
    times.push_back(time);
    context.output.line(milliseconds(time) + ", running: " + joined(running));
    boost::json::object record{
        {"ok", true}, {"seconds", time.count()}, {"running", boost::json::value_from(running)}};
    if (pong.rtt) {
      record["agentRtt"] = *pong.rtt;
    }
    context.output.record(record);
  }
  if (times.size() > 1) {
    std::ranges::sort(times);
    context.output.line(std::to_string(times.size()) + " pings: fastest " +
                        milliseconds(times.front()) + ", median " +
                        milliseconds(times[times.size() / 2]) + ", slowest " +
                        milliseconds(times.back()));
  }
}

void rawCommand(const CommandContext& context) {
  boost::system::error_code error;
  boost::json::parse(context.arguments.payload, error);
  if (error) {
    throw usageFailure("PAYLOAD must be JSON (" + error.message() + ").");
  }
  const PhoneState state = context.stateFile.load();
  auto session = context.open(context.chooseAgent(state.agentName), state.token);
  session.sendText(R"({"id":")" + uuidText(randomUuid()) + R"(","payload":)" +
                   context.arguments.payload + R"(,"type":)" +
                   boost::json::serialize(boost::json::string(context.arguments.messageType)) +
                   "}");
  // `deck.sync` is the only request that paired and unknown phones alike get a reply to. Messages
  // are answered in order, so its reply marks the end of the replies to the message.
  const auto marker = MessageFactory::deckSync(randomUuid());
  session.send(marker);
  int replies = 0;
  session.replyTo(marker.id, [&](const ReceivedMessage& message) {
    ++replies;
    context.output.line(message.text);
    context.output.record({{"ok", true}, {"message", boost::json::parse(message.text)}});
  });
  context.output.note(replies == 0 ? "No reply." : "No more replies.");
  context.output.record({{"ok", true}, {"replies", replies}});
}

}  // namespace glintboard::phone
