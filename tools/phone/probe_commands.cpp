// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cstdio>

#include "protocol/message_factory.h"
#include "tools/phone/command_context.h"

namespace glintboard::phone {
namespace {

std::string milliseconds(double seconds) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.2f ms", seconds * 1000);
  return text.data();
}

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
  // A phone that is not known gets no pong and no word of it; syncing finds out.
  session.sync();
  std::vector<double> times;
  for (int number = 0; number < context.arguments.count; ++number) {
    const auto start = std::chrono::steady_clock::now();
    const auto reply = session.ask(MessageFactory::ping(WireDate::now(), randomUuid()));
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    const auto pong = payloadOf<PongPayload>(reply);
    const auto running = pong.runningBundleIds.value_or(std::vector<std::string>{});
    times.push_back(time.count());
    context.output.line(milliseconds(time.count()) + ", running: " + joined(running));
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
  // Of all requests only this one is answered to paired and unknown phones alike, and only after
  // whatever the message was answered with.
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
