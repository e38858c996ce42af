// SPDX-License-Identifier: MIT
#include "agent/connection/listener_service.h"

#include <QCoreApplication>
#include <boost/system/errc.hpp>

#include "agent/language/error_text.h"
#include "platform/descriptor_limit.h"
#include "platform/log.h"
#include "platform/spawn.h"
#include "protocol/message_factory.h"
#include "protocol/wire_codec.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;

constexpr auto portConflictPause = 400ms;

const char* description(ListenerServiceError::Code code) {
  return code == ListenerServiceError::Code::invalidPort
             ? QT_TRANSLATE_NOOP("UserError", "The listener's port is not valid.")
             : QT_TRANSLATE_NOOP("UserError", "The listener is already running.");
}

std::string portInUseText(std::uint16_t port) {
  return QCoreApplication::translate(
             "ListenerService", "Port %1 is already in use. Quit the other Glintboard Agent first.")
      .arg(port)
      .toStdString();
}

}  // namespace

ListenerServiceError::ListenerServiceError(Code given)
    : UserError(description(given)), code(given) {}

ListenerService::ListenerService(asio::any_io_executor executor, Parts parts, std::uint16_t port)
    : Actor(std::move(executor)),
      parts_(std::move(parts)),
      port_(port),
      bounds_(
          std::make_shared<ConnectionBounds>(ConnectionLimits::forDescriptors(descriptorLimit()))),
      strangersTurn_(this->executor()),
      runningWatch_(
          std::make_shared<RunningWatch>(this->executor(), parts_.watchRunningApplications)),
      connections_({[this](std::string_view token) {
                      return parts_.pairingService.isPaired(token).value_or(false);
                    },
                    [this](bool mayAsk) { runningWatch_->setWanted(mayAsk); },
                    [this] { observers_.notify(); }}) {}

std::shared_ptr<ListenerService> ListenerService::create(asio::any_io_executor executor,
                                                         Parts parts, std::uint16_t port) {
  std::shared_ptr<ListenerService> listener(
      new ListenerService(std::move(executor), std::move(parts), port));
  listener->parts_.pairingService.whenChanged([weak = std::weak_ptr(listener)] {
    if (const auto self = weak.lock()) {
      self->connections_.update();
    }
  });
  return listener;
}

Awaitable<> ListenerService::start() {
  return enter(doStart());
}

Awaitable<> ListenerService::stop() {
  return enter(doStop());
}

Awaitable<> ListenerService::restart() {
  return enter(doRestart());
}

Awaitable<ListenerState> ListenerService::state() {
  return enter(doState());
}

Awaitable<> ListenerService::dismissShortcutCoachMessage() {
  return enter(doDismissShortcutCoachMessage());
}

Awaitable<> ListenerService::pushDecksSnapshot() {
  return enter(doPushDecksSnapshot());
}

Awaitable<> ListenerService::checkAfterSleep() {
  return enter(doCheckAfterSleep());
}

Awaitable<> ListenerService::shutDown() {
  return enter(doShutDown());
}

Awaitable<> ListenerService::doStart() {
  startListener();
  co_return;
}

Awaitable<> ListenerService::doStop() {
  stopListener();
  co_return;
}

Awaitable<> ListenerService::doRestart() {
  stopListener();
  portConflictRetries_ = 0;
  lastError_.reset();
  startListener();
  co_return;
}

Awaitable<ListenerState> ListenerService::doState() {
  co_return ListenerState{isRunning_, lastError_, shortcutCoachMessage_};
}

Awaitable<> ListenerService::doDismissShortcutCoachMessage() {
  shortcutCoachMessage_.reset();
  observers_.notify();
  co_return;
}

void ListenerService::startListener() {
  if (listener_ && isRunning_) {
    throw ListenerServiceError(ListenerServiceError::Code::alreadyRunning);
  }
  listener_.reset();
  if (port_ == 0) {
    throw ListenerServiceError(ListenerServiceError::Code::invalidPort);
  }
  ++starts_;
  listener_ = std::make_unique<WebSocketListener>(executor(), port_, bounds_);
  isRunning_ = false;
  lastError_.reset();
  observers_.notify();
  listener_->start(
      [weak = weak_from_this()](const WebSocketListenerState& state) {
        if (const auto self = weak.lock()) {
          self->handleListenerState(state);
        }
      },
      [weak = weak_from_this()](ConnectionPointer connection) {
        if (const auto self = weak.lock()) {
          spawn(self->executor(), serve(self, std::move(connection)), "connection");
        }
      });
}

void ListenerService::stopListener() {
  listener_.reset();
  parts_.bonjour.withdraw();
  isRunning_ = false;
  connections_.endPushes();
  observers_.notify();
}

void ListenerService::handleListenerState(const WebSocketListenerState& state) {
  switch (state.kind) {
    case WebSocketListenerState::Kind::ready:
      portConflictRetries_ = 0;
      isRunning_ = true;
      lastError_.reset();
      observers_.notify();
      log::info("listening on port ", port_);
      advertise();
      return;
    case WebSocketListenerState::Kind::failed:
      break;
  }
  const bool portInUse = state.error == boost::system::errc::address_in_use;
  lastError_ = portInUse ? portInUseText(port_) : errorText(state.error).toStdString();
  if (portConflictRetries_ == 0) {
    log::warning("not listening on port ", port_, ": ", state.error.message());
  }
  isRunning_ = false;
  observers_.notify();
  parts_.bonjour.withdraw();
  if (portInUse && portConflictRetries_ < maxPortConflictRetries) {
    ++portConflictRetries_;
    listener_.reset();
    spawn(executor(), retryStartAfterPortConflict(weak_from_this(), starts_), "listener");
  }
}

Awaitable<> ListenerService::retryStartAfterPortConflict(std::weak_ptr<ListenerService> weak,
                                                         unsigned start) {
  co_await sleepFor(portConflictPause);
  const auto self = weak.lock();
  if (!self || self->listener_ || self->isShutDown_ || self->starts_ != start) {
    co_return;
  }
  try {
    self->startListener();
  } catch (const std::exception& error) {
    self->lastError_ = errorText(error).toStdString();
    self->observers_.notify();
  }
}

void ListenerService::advertise() {
  parts_.bonjour.publish({parts_.localizedName().value_or("Glintboard Mac"),
                          std::string(GlintboardService::bonjourType),
                          std::string(GlintboardService::bonjourDomain), port_});
}

Awaitable<> ListenerService::serve(std::shared_ptr<ListenerService> self,
                                   ConnectionPointer connection) {
  auto token = WebSocketAuth::token(connection->handshake().headers);
  self->connections_.add(connection, token);
  const auto paired = co_await self->device(token);
  if (paired) {
    log::info("connected: \"", paired->name, "\" from ", connection->handshake().peer);
  } else {
    log::debug("connected: ", token ? "an unknown token" : "no token", " from ",
               connection->handshake().peer);
  }
  try {
    co_await self->receiveMessages(connection, std::move(token));
  } catch (const std::exception& error) {
    log::warning("connection: ", error.what());
  }
  self->connections_.remove(connection);
  connection->cancel();
  log::writeIfWanted(paired ? log::Level::info : log::Level::debug,
                     "disconnected: ", connection->handshake().peer);
}

Awaitable<> ListenerService::receiveMessages(ConnectionPointer connection,
                                             std::optional<std::string> token) {
  // As of the messages that came together.
  std::optional<std::vector<std::string>> running;
  for (;;) {
    auto message = connection->received();
    if (!message) {
      running.reset();
      message = co_await connection->receive();
    }
    if (!message) {
      co_return;
    }
    if (message->empty()) {
      continue;
    }
    const bool paired = isPaired(token);  // which may have changed since the last message
    std::optional<AsyncLock::Guard> turn;
    if (!paired) {
      running.reset();
      connection->flush();
      auto taken = co_await strangersTurn_.acquire();
      turn.emplace(std::move(taken));
    }
    auto parsed = WireMessageParser::parse(*message);
    if (!parsed) {
      continue;
    }
    const auto* ping = paired ? std::get_if<WireMessage<PingPayload>>(&*parsed) : nullptr;
    if (ping != nullptr && runningWatch_->ask()) {
      if (!running) {
        const auto asked = ++pingsAsked_;
        if (connections_.paired() > 1) {
          // Behind what the others have sent, to answer them all from one look.
          co_await asio::post(executor(), asio::use_awaitable);
        }
        running = runningSince(asked);
      }
      if (running) {
        std::string reply = pongAtOnce(*ping, *running);
        if (!connection->sendNow(reply)) {
          running.reset();
          co_await connection->send(std::move(reply));
        }
        continue;
      }
    }
    running.reset();
    connection->flush();
    auto replies = co_await answer(std::move(*parsed), std::move(*message), token, std::move(turn));
    for (auto& reply : replies) {
      co_await connection->send(std::move(reply));
    }
  }
}

Awaitable<> ListenerService::doPushDecksSnapshot() {
  co_await runningKnown();
  auto decks = co_await parts_.deckStore.deckSnapshots(parts_.workspace, parts_.iconProvider,
                                                       parts_.shortcutIconProvider);
  const auto text = std::make_shared<const std::string>(
      WireCodec::encodeString(MessageFactory::decksSnapshot(std::move(decks), randomUuid())));
  connections_.push(text);
}

Awaitable<> ListenerService::doCheckAfterSleep() {
  connections_.probe();
  if (isRunning_) {
    advertise();
  }
  co_return;
}

Awaitable<> ListenerService::doShutDown() {
  isShutDown_ = true;
  stopListener();
  connections_.cancelAll();
  co_return;
}

}  // namespace glintboard
