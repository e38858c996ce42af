// SPDX-License-Identifier: MIT
#include "agent/connection/listener_service.h"

#include <QCoreApplication>
#include <boost/system/errc.hpp>

#include "agent/connection/message_loop.h"
#include "agent/language/error_text.h"
#include "platform/descriptor_limit.h"
#include "platform/log.h"
#include "platform/spawn.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;

constexpr auto retryInterval = 400ms;

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

std::string shortcutsHint() {
  return QCoreApplication::translate("ListenerService",
                                     "Allow this Shortcut on your Mac (System Settings \u2192 "
                                     "Privacy & Security \u2192 Automation), then try again.")
      .toStdString();
}

}  // namespace

ListenerServiceError::ListenerServiceError(Code given)
    : UserError(description(given)), code(given) {}

ListenerService::ListenerService(asio::any_io_executor executor, Parts parts, std::uint16_t port)
    : Actor(std::move(executor)),
      pairingService_(parts.dispatcher.pairingService),
      bonjour_(parts.bonjour),
      localizedName_(std::move(parts.localizedName)),
      port_(port),
      bounds_(
          std::make_shared<ConnectionBounds>(ConnectionLimits::forDescriptors(descriptorLimit()))),
      dispatcher_(this->executor(), std::move(parts.dispatcher),
                  [this] { showShortcutCoachMessage(); }),
      connections_({[this](std::string_view token) {
                      return pairingService_.isPaired(token).value_or(false);
                    },
                    [this](std::size_t count) { dispatcher_.setPairedConnections(count); },
                    [this] { observers_.notify(); }}) {}

std::shared_ptr<ListenerService> ListenerService::create(asio::any_io_executor executor,
                                                         Parts parts, std::uint16_t port) {
  std::shared_ptr<ListenerService> listener(
      new ListenerService(std::move(executor), std::move(parts), port));
  listener->pairingService_.whenChanged([weak = std::weak_ptr(listener)] {
    if (const auto self = weak.lock()) {
      self->connections_.update();
    }
  });
  return listener;
}

Awaitable<> ListenerService::start() {
  return enter([this] { startListener(); });
}

Awaitable<> ListenerService::stop() {
  return enter([this] { stopListener(); });
}

Awaitable<> ListenerService::restart() {
  return enter([this] {
    stopListener();
    portConflictRetries_ = 0;
    lastError_.reset();
    startListener();
  });
}

Awaitable<ListenerState> ListenerService::state() {
  return enter([this] { return ListenerState{isRunning_, lastError_, shortcutCoachMessage_}; });
}

Awaitable<> ListenerService::dismissShortcutCoachMessage() {
  return enter([this] {
    shortcutCoachMessage_.reset();
    observers_.notify();
  });
}

Awaitable<> ListenerService::pushDecksSnapshot() {
  return enter(doPushDecksSnapshot());
}

Awaitable<> ListenerService::checkAfterSleep() {
  return enter([this] {
    connections_.probe();
    if (isRunning_) {
      advertise();
    }
  });
}

Awaitable<> ListenerService::shutDown() {
  return enter([this] {
    isShutDown_ = true;
    stopListener();
    connections_.cancelAll();
  });
}

Awaitable<Replies> ListenerService::dispatch(std::string message,
                                             std::optional<std::string> token) {
  return enter(dispatcher_.dispatch(std::move(message), std::move(token)));
}

Awaitable<> ListenerService::doPushDecksSnapshot() {
  auto text = co_await dispatcher_.decksSnapshot(randomUuid());
  connections_.push(std::make_shared<const std::string>(std::move(text)));
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
  bonjour_.withdraw();
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
  bonjour_.withdraw();
  if (portInUse && portConflictRetries_ < maxPortConflictRetries) {
    ++portConflictRetries_;
    listener_.reset();
    spawn(executor(), retryStartAfterPortConflict(weak_from_this(), starts_), "listener");
  }
}

Awaitable<> ListenerService::retryStartAfterPortConflict(std::weak_ptr<ListenerService> weak,
                                                         unsigned start) {
  co_await sleepFor(retryInterval);
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
  bonjour_.publish({localizedName_().value_or("Glintboard Mac"),
                    std::string(GlintboardService::bonjourType),
                    std::string(GlintboardService::bonjourDomain), port_});
}

Awaitable<> ListenerService::serve(std::shared_ptr<ListenerService> self,
                                   ConnectionPointer connection) {
  auto token = WebSocketAuth::token(connection->handshake().headers);
  self->connections_.add(connection, token);
  std::optional<PairedDevice> paired;
  if (token && !token->empty()) {
    paired = co_await self->pairingService_.device(*token);
  }
  if (paired) {
    log::info("connected: \"", paired->name, "\" from ", connection->handshake().peer);
  } else {
    log::debug("connected: ", token ? "an unknown token" : "no token", " from ",
               connection->handshake().peer);
  }
  try {
    co_await receiveMessages(self->dispatcher_, connection, std::move(token));
  } catch (const std::exception& error) {
    log::warning("connection: ", error.what());
  }
  self->connections_.remove(connection);
  connection->cancel();
  log::writeIfWanted(paired ? log::Level::info : log::Level::debug,
                     "disconnected: ", connection->handshake().peer);
}

void ListenerService::showShortcutCoachMessage() {
  if (!shortcutCoachMessage_) {
    shortcutCoachMessage_ = shortcutsHint();
    observers_.notify();
  }
}

}  // namespace glintboard
