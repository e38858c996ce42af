// SPDX-License-Identifier: MIT
// What becomes of one message.
#include <QCoreApplication>
#include <algorithm>
#include <chrono>

#include "agent/connection/listener_service.h"
#include "agent_core/shortcuts/shortcuts_catalog.h"
#include "platform/log.h"
#include "platform/run_on.h"
#include "protocol/base64.h"
#include "protocol/message_factory.h"
#include "protocol/wire_codec.h"

namespace glintboard {
namespace {

using Replies = std::vector<std::string>;
namespace Parser = WireMessageParser;

// Icons are asked for so many at a time, so that another phone's question comes between.
constexpr std::size_t iconsAtOnce = 8;
// What one request may ask for; a deck has 24 keys.
constexpr std::size_t maxIconKeys = 256;

std::string unauthorizedMessage() {
  return std::string("Missing or invalid ").append(GlintboardService::authHeaderName) + " header";
}

std::string shortcutsHint() {
  return QCoreApplication::translate("ListenerService",
                                     "Allow this Shortcut on your Mac (System Settings \u2192 "
                                     "Privacy & Security \u2192 Automation), then try again.")
      .toStdString();
}

template <class Payload>
Replies one(const WireMessage<Payload>& reply) {
  return {WireCodec::encodeString(reply)};
}

template <class... Alternatives>
Replies one(const std::variant<Alternatives...>& response) {
  return std::visit([](const auto& reply) { return one(reply); }, response);
}

Replies appUnauthorized(std::string bundleId, Uuid id) {
  return one(MessageFactory::appError(std::move(bundleId), AppErrorCode::unauthorized,
                                      unauthorizedMessage(), id));
}

// The answers to a connection without a paired phone's token.
struct Refusal {
  Replies operator()(const WireMessage<EmptyPayload>& request) const {
    return appUnauthorized("", request.id);
  }
  Replies operator()(const Parser::AppLaunch& request) const {
    return appUnauthorized(request.message.payload.bundleId, request.message.id);
  }
  Replies operator()(const Parser::AppFocus& request) const {
    return appUnauthorized(request.message.payload.bundleId, request.message.id);
  }
  Replies operator()(const WireMessage<ActionRunPayload>& request) const {
    return one(MessageFactory::actionError(request.payload.actionId, ActionErrorCode::unauthorized,
                                           unauthorizedMessage(), request.id));
  }
  Replies operator()(const WireMessage<ShortcutRunPayload>& request) const {
    return one(MessageFactory::shortcutError(request.payload.shortcutIdentifier,
                                             ShortcutErrorCode::unauthorized, unauthorizedMessage(),
                                             request.id));
  }
  // Pings, icon requests and what the agent does not accept are met with silence.
  template <class Other>
  Replies operator()(const Other&) const {
    return {};
  }
};

WireMessage<PongPayload> pongTo(const WireMessage<PingPayload>& ping,
                                std::vector<std::string> running) {
  // In seconds from the start: a date far off has too many nanoseconds.
  const auto seconds = [](auto time) {
    return std::chrono::duration<double>(time.time_since_epoch()).count();
  };
  const double elapsed = seconds(std::chrono::system_clock::now()) - seconds(ping.payload.ts.time);
  return MessageFactory::pong(ping.payload.ts, elapsed, std::move(running), ping.id);
}

// Whether the reply says that the Shortcut waits for the user.
bool needsUser(std::string_view reply) {
  const auto error = WireCodec::decode<ShortcutErrorPayload>(reply);
  return error && error->type == rawValue(MessageType::shortcutError) &&
         (error->payload.code == ShortcutErrorCode::cancelled ||
          error->payload.code == ShortcutErrorCode::timedOut);
}

}  // namespace

// The answers to a paired phone.
struct ListenerService::Answer {
  ListenerService& listener;
  std::string bytes;  // the message as received

  Awaitable<Replies> operator()(WireMessage<EmptyPayload> request) {
    return listener.synchronise(request.id);
  }
  Awaitable<Replies> operator()(WireMessage<PingPayload> request) {
    return listener.pong(std::move(request));
  }
  Awaitable<Replies> operator()(Parser::AppLaunch request) {
    return reply(listener, listener.parts_.appMessageHandler.handleLaunch(
                               std::move(request.message.payload.bundleId), request.message.id));
  }
  Awaitable<Replies> operator()(Parser::AppFocus request) {
    return reply(listener, listener.parts_.appMessageHandler.handleFocus(
                               std::move(request.message.payload.bundleId), request.message.id));
  }
  Awaitable<Replies> operator()(WireMessage<ActionRunPayload> request) {
    return listener.runAction(std::move(request));
  }
  Awaitable<Replies> operator()(const WireMessage<ShortcutRunPayload>&) {
    return listener.runShortcut(std::move(bytes));
  }
  Awaitable<Replies> operator()(WireMessage<AppIconRequestPayload> request) {
    return listener.icons(std::move(request));
  }
  Awaitable<Replies> operator()(WireMessage<PairRequestPayload> request) {
    return listener.pair(std::move(request));
  }
  Awaitable<Replies> operator()(const Parser::Unknown&) { return silence(); }

 private:
  static Awaitable<Replies> silence() { co_return Replies(); }
  static Awaitable<Replies> reply(ListenerService& listener,
                                  Awaitable<AppMessageResponse> answering) {
    co_await listener.runningKnown();
    const auto response = co_await std::move(answering);
    co_return one(response);
  }
};

Awaitable<Replies> ListenerService::dispatch(std::string message,
                                             std::optional<std::string> token) {
  auto parsed = Parser::parse(message);
  if (!parsed) {
    co_return Replies();
  }
  co_return co_await answer(std::move(*parsed), std::move(message), std::move(token), {});
}

Awaitable<> ListenerService::runningKnown() {
  if (!runningWatch_->ask()) {
    co_await runningWatch_->known();
  }
}

bool ListenerService::isPaired(const std::optional<std::string>& token) {
  return token && !token->empty() && parts_.pairingService.isPaired(*token).value_or(false);
}

std::optional<std::vector<std::string>> ListenerService::runningSince(std::uint64_t asked) {
  if (lookedAfter_ < asked) {
    running_ = parts_.deckStore.runningDeckBundleIdsNow(parts_.workspace);
    lookedAfter_ = pingsAsked_;
  }
  return running_;
}

std::string ListenerService::pongAtOnce(const WireMessage<PingPayload>& ping,
                                        std::vector<std::string> running) {
  return WireCodec::encodeString(pongTo(ping, std::move(running)));
}

Awaitable<Replies> ListenerService::answer(Parser::ParsedMessage parsed, std::string message,
                                           std::optional<std::string> token,
                                           std::optional<AsyncLock::Guard> turn) {
  try {
    if (auto* request = std::get_if<WireMessage<PairRequestPayload>>(&parsed)) {
      turn.reset();  // pairings take turns of their own
      co_return co_await pair(std::move(*request));
    }
    const auto paired = co_await device(token);
    if (!paired) {
      co_return std::visit(Refusal{}, parsed);
    }
    turn.reset();
    auto answering = std::visit(Answer{*this, std::move(message)}, std::move(parsed));
    co_return co_await std::move(answering);
  } catch (const std::exception& error) {
    log::warning("a message got no reply: ", error.what());
    co_return Replies();
  }
}

Awaitable<std::optional<PairedDevice>> ListenerService::device(
    const std::optional<std::string>& token) {
  if (!token || token->empty()) {
    co_return std::nullopt;
  }
  co_return co_await parts_.pairingService.device(*token);
}

Awaitable<Replies> ListenerService::pair(WireMessage<PairRequestPayload> request) {
  const auto response =
      co_await parts_.pairingService.handlePairRequest(std::move(request.payload), request.id);
  co_return one(response);
}

Awaitable<Replies> ListenerService::synchronise(Uuid requestId) {
  co_await runningKnown();
  auto decks = co_await parts_.deckStore.deckSnapshots(parts_.workspace, parts_.iconProvider,
                                                       parts_.shortcutIconProvider);
  co_return one(MessageFactory::decksSnapshot(std::move(decks), requestId));
}

Awaitable<Replies> ListenerService::pong(WireMessage<PingPayload> request) {
  co_await runningKnown();
  auto running = co_await parts_.deckStore.runningDeckBundleIds(parts_.workspace);
  co_return one(pongTo(request, std::move(running)));
}

Awaitable<Replies> ListenerService::runAction(WireMessage<ActionRunPayload> request) {
  auto running = runOn(parts_.actionLane,
                       [handler = parts_.actionMessageHandler, request = std::move(request)] {
                         return handler.handleRun(request.payload.actionId, request.id);
                       });
  const auto response = co_await std::move(running);
  co_return one(response);
}

Awaitable<Replies> ListenerService::runShortcut(std::string bytes) {
  const auto reply = co_await parts_.shortcutWireHandler.handle(std::move(bytes));
  if (!reply || !*reply) {
    co_return Replies();
  }
  std::string text = WireCodec::checkedText(**reply);
  if (!shortcutCoachMessage_ && needsUser(text)) {
    shortcutCoachMessage_ = shortcutsHint();
    observers_.notify();
  }
  co_return Replies{std::move(text)};
}

Awaitable<Replies> ListenerService::icons(WireMessage<AppIconRequestPayload> request) {
  Replies replies;
  auto& keys = request.payload.bundleIds;
  keys.resize(std::min(keys.size(), maxIconKeys));
  for (std::size_t first = 0; first < keys.size(); first += iconsAtOnce) {
    const std::vector some(
        keys.begin() + std::ptrdiff_t(first),
        keys.begin() + std::ptrdiff_t(std::min(first + iconsAtOnce, keys.size())));
    const auto found = co_await iconsOf(some);
    for (const auto& key : some) {
      if (const auto icon = found.find(key); icon != found.end()) {
        replies.push_back(WireCodec::encodeString(MessageFactory::appIcon(
            key, icon->second.revision, base64Encode(icon->second.data), randomUuid())));
      }
    }
  }
  co_return replies;
}

Awaitable<std::map<std::string, Icon>> ListenerService::iconsOf(std::vector<std::string> keys) {
  const auto firstShortcut = std::ranges::partition(keys, [](const std::string& key) {
                               return !ShortcutsCatalog::isShortcutIdentifier(key);
                             }).begin();
  std::vector<std::string> shortcuts(firstShortcut, keys.end());
  keys.erase(firstShortcut, keys.end());
  std::map<std::string, Icon> found;
  if (!keys.empty()) {
    found = co_await parts_.iconProvider.icons(std::move(keys), parts_.workspace);
  }
  if (!shortcuts.empty()) {
    found.merge(co_await parts_.shortcutIconProvider.icons(std::move(shortcuts)));
  }
  co_return found;
}

}  // namespace glintboard
