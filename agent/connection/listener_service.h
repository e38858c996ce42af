// SPDX-License-Identifier: MIT
// The agent's network endpoint.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "agent/connection/message_dispatcher.h"
#include "agent/connection/open_connections.h"
#include "agent/connection/web_socket_listener.h"
#include "agent/pairing/pairing_service.h"
#include "platform/actor.h"
#include "platform/bonjour.h"
#include "platform/observers.h"
#include "platform/user_error.h"
#include "protocol/glintboard_service.h"

namespace glintboard {

class ListenerServiceError : public UserError {
 public:
  enum class Code { invalidPort, alreadyRunning };
  explicit ListenerServiceError(Code code);
  Code code;
};

// The state that the user sees. The texts are translated.
struct ListenerState {
  bool isRunning = false;
  std::optional<std::string> lastError;
  std::optional<std::string> shortcutCoachMessage;
};

// Listens for phones, advertises the port, and pushes the decks to the paired phones. A port in use
// is tried again, `maxPortConflictRetries` times. Messages are answered by a MessageDispatcher, in
// one message loop per connection; connections are served concurrently.
//
// An actor of the service loop, as its pairing service must be.
class ListenerService : public Actor, public std::enable_shared_from_this<ListenerService> {
 public:
  // The references must outlive the listener and its connections.
  struct Parts {
    MessageDispatcher::Parts dispatcher;
    BonjourAdvertiser& bonjour;
    // The computer's name as its user sees it.
    std::function<std::optional<std::string>()> localizedName;
  };

  static constexpr int maxPortConflictRetries = 8;

  // Follows the pairing service from now on, and listens from `start` on. Any thread.
  static std::shared_ptr<ListenerService> create(
      asio::any_io_executor executor, Parts parts,
      std::uint16_t port = GlintboardService::defaultPort);

  // The operations below may be awaited on any executor.

  // Creates the listener and starts it; isRunning becomes true when it is ready. Throws
  // ListenerServiceError.
  Awaitable<> start();
  // Ends the listener. Open connections continue, but receive no more pushes.
  Awaitable<> stop();
  // Stops, resets the retries and the error, and starts. Throws ListenerServiceError.
  Awaitable<> restart();
  Awaitable<ListenerState> state();
  Awaitable<> dismissShortcutCoachMessage();
  // Sends the decks to every connection of a paired phone. Throws WireCodecError.
  Awaitable<> pushDecksSnapshot();
  // Probes every connection and advertises again. To be called when the computer wakes up.
  Awaitable<> checkAfterSleep();
  // Ends the listener and every connection. The listener is not started again by itself.
  Awaitable<> shutDown();
  // The replies to one message of a connection that presented `token`; empty when nothing is to be
  // sent.
  Awaitable<Replies> dispatch(std::string message, std::optional<std::string> token);

  // Whether a push reaches a phone now. Any thread.
  bool hasConnectedPhone() const { return connections_.hasPushes(); }
  // Calls `observer` on the service loop after each change of the state or of `hasConnectedPhone`.
  // Any thread.
  void whenChanged(std::function<void()> observer) { observers_.add(std::move(observer)); }

 private:
  using ConnectionPointer = OpenConnections::Connection;

  ListenerService(asio::any_io_executor executor, Parts parts, std::uint16_t port);
  void startListener();
  void stopListener();
  Awaitable<> doPushDecksSnapshot();
  void handleListenerState(const WebSocketListenerState& state);
  // Does nothing if the listener was started again since the start of that number.
  static Awaitable<> retryStartAfterPortConflict(std::weak_ptr<ListenerService> weak,
                                                 unsigned start);
  void advertise();
  void showShortcutCoachMessage();
  // Serves an upgraded connection until it ends.
  static Awaitable<> serve(std::shared_ptr<ListenerService> self, ConnectionPointer connection);

  PairingService& pairingService_;
  BonjourAdvertiser& bonjour_;
  std::function<std::optional<std::string>()> localizedName_;
  std::uint16_t port_;
  // Shared by successive listeners, because connections outlive their listener.
  std::shared_ptr<ConnectionBounds> bounds_;
  std::unique_ptr<WebSocketListener> listener_;
  MessageDispatcher dispatcher_;
  OpenConnections connections_;
  Observers observers_;
  bool isRunning_ = false;
  std::optional<std::string> lastError_;
  std::optional<std::string> shortcutCoachMessage_;
  int portConflictRetries_ = 0;
  unsigned starts_ = 0;
  bool isShutDown_ = false;
};

}  // namespace glintboard
