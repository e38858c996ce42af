// SPDX-License-Identifier: MIT
#include "agent/connection/message_dispatcher.h"

#include <chrono>
#include <exception>
#include <utility>

#include "agent/connection/icon_replies.h"
#include "platform/log.h"
#include "platform/run_on.h"
#include "protocol/message_factory.h"

namespace glintboard {
namespace {

namespace Parser = WireMessageParser;

Replies noReplies(const std::exception& error) {
  log::warning("a message got no reply: ", error.what());
  return {};
}

Awaitable<Replies> noRepliesOnFailure(Awaitable<Replies> answering) {
  try {
    co_return co_await std::move(answering);
  } catch (const std::exception& error) {
    co_return noReplies(error);
  }
}

Replies pongTo(const WireMessage<PingPayload>& ping, std::vector<std::string> running) {
  // As seconds, because the nanoseconds of a distant date overflow.
  const auto seconds = [](auto time) {
    return std::chrono::duration<double>(time.time_since_epoch()).count();
  };
  const double elapsed = seconds(std::chrono::system_clock::now()) - seconds(ping.payload.ts.time);
  return oneReply(MessageFactory::pong(ping.payload.ts, elapsed, std::move(running), ping.id));
}

// Whether the reply says that the Shortcut waits for the user.
bool needsUser(std::string_view reply) {
  const auto error = WireCodec::decode<ShortcutErrorPayload>(reply);
  return error && error->type == rawValue(MessageType::shortcutError) &&
         (error->payload.code == ShortcutErrorCode::cancelled ||
          error->payload.code == ShortcutErrorCode::timedOut);
}

}  // namespace

// The operation that answers each type of message from a paired phone.
struct MessageDispatcher::PairedAnswer {
  MessageDispatcher& dispatcher;
  std::string message;  // as received
  Batch& batch;

  Answer operator()(WireMessage<PairRequestPayload> request) {
    return dispatcher.pair(std::move(request));
  }
  Answer operator()(const WireMessage<EmptyPayload>& request) {
    return dispatcher.synchronise(request.id);
  }
  Answer operator()(WireMessage<PingPayload> ping) {
    return dispatcher.answerPing(std::move(ping), batch);
  }
  Answer operator()(Parser::AppLaunch request) {
    return dispatcher.handleApp(dispatcher.parts_.appMessageHandler.handleLaunch(
        std::move(request.message.payload.bundleId), request.message.id));
  }
  Answer operator()(Parser::AppFocus request) {
    return dispatcher.handleApp(dispatcher.parts_.appMessageHandler.handleFocus(
        std::move(request.message.payload.bundleId), request.message.id));
  }
  Answer operator()(WireMessage<ActionRunPayload> request) {
    return dispatcher.runAction(std::move(request));
  }
  Answer operator()(const WireMessage<ShortcutRunPayload>&) {
    return dispatcher.runShortcut(std::move(message));
  }
  Answer operator()(WireMessage<AppIconRequestPayload> request) {
    auto& parts = dispatcher.parts_;
    return iconReplies(std::move(request.payload.bundleIds), parts.iconProvider,
                       parts.shortcutIconProvider, parts.workspace);
  }
  Answer operator()(const Parser::Unknown&) { return Replies(); }
};

MessageDispatcher::MessageDispatcher(asio::any_io_executor executor, Parts parts,
                                     std::function<void()> shortcutNeedsUser)
    : parts_(std::move(parts)),
      shortcutNeedsUser_(std::move(shortcutNeedsUser)),
      runningWatch_(std::make_shared<RunningWatch>(executor, parts_.watchRunningApplications)),
      strangersTurn_(executor) {}

MessageDispatcher::Answer MessageDispatcher::answer(std::string message,
                                                    const std::optional<std::string>& token,
                                                    Batch& batch) {
  try {
    auto answer = answerOrThrow(std::move(message), token, batch);
    if (auto* answering = std::get_if<Awaitable<Replies>>(&answer)) {
      return noRepliesOnFailure(std::move(*answering));
    }
    return answer;
  } catch (const std::exception& error) {
    return noReplies(error);
  }
}

Awaitable<Replies> MessageDispatcher::dispatch(std::string message,
                                               std::optional<std::string> token) {
  Batch batch;
  auto given = answer(std::move(message), token, batch);
  if (auto* answering = std::get_if<Awaitable<Replies>>(&given)) {
    co_return co_await std::move(*answering);
  }
  co_return std::get<Replies>(std::move(given));
}

MessageDispatcher::Answer MessageDispatcher::answerOrThrow(std::string message,
                                                           const std::optional<std::string>& token,
                                                           Batch& batch) {
  const auto paired = isPaired(token);
  if (!paired.value_or(false)) {
    return answerUnpaired(std::move(message), paired ? std::nullopt : token);
  }
  auto parsed = Parser::parse(message);
  if (!parsed) {
    return Replies();
  }
  return answerPaired(std::move(*parsed), std::move(message), batch);
}

MessageDispatcher::Answer MessageDispatcher::answerPaired(Parser::ParsedMessage parsed,
                                                          std::string message, Batch& batch) {
  return std::visit(PairedAnswer{*this, std::move(message), batch}, std::move(parsed));
}

MessageDispatcher::Answer MessageDispatcher::answerPing(WireMessage<PingPayload> ping,
                                                        Batch& batch) {
  if (!batch.running && runningWatch_->ask() && pairedConnections_ <= 1) {
    batch.running = parts_.deckStore.runningDeckBundleIdsNow(parts_.workspace);
  }
  if (batch.running) {
    return pongTo(ping, *batch.running);
  }
  return pong(std::move(ping), batch);
}

Awaitable<Replies> MessageDispatcher::answerUnpaired(std::string message,
                                                     std::optional<std::string> token) {
  std::optional<AsyncLock::Guard> turn;
  auto acquired = co_await strangersTurn_.acquire();
  turn.emplace(std::move(acquired));
  auto parsed = Parser::parse(message);
  if (!parsed) {
    co_return Replies();
  }
  if (auto* request = std::get_if<WireMessage<PairRequestPayload>>(&*parsed)) {
    turn.reset();  // the pairing service has a lock of its own
    co_return co_await pair(std::move(*request));
  }
  const auto device =
      token ? co_await parts_.pairingService.device(std::move(*token)) : std::nullopt;
  if (!device) {
    co_return refusalOf(*parsed);
  }
  turn.reset();
  Batch batch;
  auto answer = answerPaired(std::move(*parsed), std::move(message), batch);
  if (auto* answering = std::get_if<Awaitable<Replies>>(&answer)) {
    co_return co_await std::move(*answering);
  }
  co_return std::get<Replies>(std::move(answer));
}

std::optional<bool> MessageDispatcher::isPaired(const std::optional<std::string>& token) {
  return token && !token->empty() ? parts_.pairingService.isPaired(*token) : false;
}

void MessageDispatcher::setPairedConnections(std::size_t count) {
  pairedConnections_ = count;
  runningWatch_->setWanted(count > 0);
}

Awaitable<> MessageDispatcher::runningKnown() {
  if (!runningWatch_->ask()) {
    co_await runningWatch_->known();
  }
}

Awaitable<Replies> MessageDispatcher::pair(WireMessage<PairRequestPayload> request) {
  const auto response =
      co_await parts_.pairingService.handlePairRequest(std::move(request.payload), request.id);
  co_return oneReply(response);
}

Awaitable<std::string> MessageDispatcher::decksSnapshot(Uuid id) {
  co_await runningKnown();
  auto decks = co_await parts_.deckStore.deckSnapshots(parts_.workspace, parts_.iconProvider,
                                                       parts_.shortcutIconProvider);
  co_return WireCodec::encodeString(MessageFactory::decksSnapshot(std::move(decks), id));
}

Awaitable<Replies> MessageDispatcher::synchronise(Uuid requestId) {
  Replies replies;
  replies.push_back(co_await decksSnapshot(requestId));
  co_return replies;
}

Awaitable<Replies> MessageDispatcher::pong(WireMessage<PingPayload> ping, Batch& batch) {
  co_await runningKnown();
  if (!nextReading_) {
    nextReading_ = std::make_shared<Running>();
  }
  const auto reading = nextReading_;
  if (pairedConnections_ > 1) {
    // Lets the other connections receive the pings that have arrived by now.
    co_await asio::post(co_await asio::this_coro::executor, asio::use_awaitable);
  }
  if (nextReading_ == reading) {
    nextReading_.reset();  // later pings need a later reading
  }
  if (!*reading) {
    *reading = co_await parts_.deckStore.runningDeckBundleIds(parts_.workspace);
  }
  batch.running = *reading;
  co_return pongTo(ping, **reading);
}

Awaitable<Replies> MessageDispatcher::handleApp(Awaitable<AppMessageResponse> handling) {
  co_await runningKnown();
  const auto response = co_await std::move(handling);
  co_return oneReply(response);
}

Awaitable<Replies> MessageDispatcher::runAction(WireMessage<ActionRunPayload> request) {
  auto running = runOn(parts_.actionLane,
                       [handler = parts_.actionMessageHandler, request = std::move(request)] {
                         return handler.handleRun(request.payload.actionId, request.id);
                       });
  const auto response = co_await std::move(running);
  co_return oneReply(response);
}

Awaitable<Replies> MessageDispatcher::runShortcut(std::string message) {
  const auto reply = co_await parts_.shortcutWireHandler.handle(std::move(message));
  if (!reply || !*reply) {
    co_return Replies();
  }
  std::string text = WireCodec::checkedText(**reply);
  if (needsUser(text)) {
    shortcutNeedsUser_();
  }
  co_return Replies{std::move(text)};
}

}  // namespace glintboard
