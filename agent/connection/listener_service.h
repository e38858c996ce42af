// SPDX-License-Identifier: MIT
// The agent's network endpoint.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "agent/connection/open_connections.h"
#include "agent/connection/running_watch.h"
#include "agent/connection/web_socket_listener.h"
#include "agent/decks/deck_store.h"
#include "agent/pairing/pairing_service.h"
#include "agent_core/actions/action_handlers.h"
#include "agent_core/apps/app_handlers.h"
#include "agent_core/icons/app_icon_provider.h"
#include "agent_core/icons/shortcut_icon_provider.h"
#include "agent_core/shortcuts/shortcut_handlers.h"
#include "platform/actor.h"
#include "platform/async_lock.h"
#include "platform/bonjour.h"
#include "platform/observers.h"
#include "platform/user_error.h"
#include "protocol/glintboard_service.h"
#include "protocol/wire_message_parser.h"

namespace glintboard {

class ListenerServiceError : public UserError {
 public:
  enum class Code { invalidPort, alreadyRunning };
  explicit ListenerServiceError(Code code);
  Code code;
};

// What the user is shown of the listener.
struct ListenerState {
  bool isRunning = false;
  std::optional<std::string> lastError;
  std::optional<std::string> shortcutCoachMessage;
};

// Listens for phones, advertises itself, answers their messages one connection at a time, and
// pushes the decks to the paired ones when they change. A port that is briefly taken is tried
// again by itself.
//
// An actor of the service loop, as its pairing service must be. What it is given must outlive it
// and the connections that it made.
class ListenerService : public Actor, public std::enable_shared_from_this<ListenerService> {
 public:
  struct Parts {
    PairingService& pairingService;
    AppMessageHandler appMessageHandler;
    ActionMessageHandler actionMessageHandler;
    ShortcutWireHandler shortcutWireHandler;
    DeckStore& deckStore;
    AppIconProvider& iconProvider;
    ShortcutIconProvider& shortcutIconProvider;
    WorkspaceClient workspace;
    BonjourAdvertiser& bonjour;
    // The computer's name as its user sees it.
    std::function<std::optional<std::string>()> localizedName;
    // Where actions block.
    asio::any_io_executor actionLane;
    // Follows which applications run, while a phone asks.
    RunningWatch::Switch watchRunningApplications;
  };

  static constexpr int maxPortConflictRetries = 8;

  // Follows the pairing service from now on, and listens from `start` on. Any thread.
  static std::shared_ptr<ListenerService> create(
      asio::any_io_executor executor, Parts parts,
      std::uint16_t port = GlintboardService::defaultPort);

  // Creates the listener and starts it; isRunning becomes true when it is ready. Throws
  // ListenerServiceError.
  Awaitable<> start();
  // Ends the listener. Connections that are open go on, but receive no more pushes.
  Awaitable<> stop();
  // A start from scratch, whatever came before: stop, retries and error forgotten, start.
  Awaitable<> restart();
  Awaitable<ListenerState> state();
  // Whether a push reaches a phone at this moment. Any thread.
  bool hasConnectedPhone() const { return connections_.hasPushes(); }
  // Calls `told` in the actor's turn at every change of the state or of `hasConnectedPhone`. Any
  // thread.
  void whenChanged(std::function<void()> told) { observers_.add(std::move(told)); }
  Awaitable<> dismissShortcutCoachMessage();
  // Sends the decks to every connection of a paired phone.
  Awaitable<> pushDecksSnapshot();
  // For when the computer has been asleep: asks every connection for a sign of life, and advertises
  // anew.
  Awaitable<> checkAfterSleep();
  // Ends the listener and every connection, for good.
  Awaitable<> shutDown();

  // The replies to one message of a connection that presented `token`; none when nothing is to be
  // sent. Runs in the actor's turns.
  Awaitable<std::vector<std::string>> dispatch(std::string message,
                                               std::optional<std::string> token);

 private:
  using ConnectionPointer = OpenConnections::Connection;

  ListenerService(asio::any_io_executor executor, Parts parts, std::uint16_t port);
  Awaitable<> doStart();
  Awaitable<> doStop();
  Awaitable<> doRestart();
  Awaitable<ListenerState> doState();
  Awaitable<> doDismissShortcutCoachMessage();
  Awaitable<> doPushDecksSnapshot();
  Awaitable<> doCheckAfterSleep();
  Awaitable<> doShutDown();
  void startListener();
  void stopListener();

  void handleListenerState(const WebSocketListenerState& state);
  // Does nothing if there was another start after the one of that number.
  static Awaitable<> retryStartAfterPortConflict(std::weak_ptr<ListenerService> weak,
                                                 unsigned start);
  void advertise();

  // The life of one connection, from its upgrade to its end.
  static Awaitable<> serve(std::shared_ptr<ListenerService> self, ConnectionPointer connection);
  Awaitable<> receiveMessages(ConnectionPointer connection, std::optional<std::string> token);

  // Dispatch by message.
  // A stranger's `turn` is given back as soon as it holds up nobody.
  Awaitable<std::vector<std::string>> answer(WireMessageParser::ParsedMessage parsed,
                                             std::string message, std::optional<std::string> token,
                                             std::optional<AsyncLock::Guard> turn);
  // The running applications of the decks as of a look that was made after the ping of this number
  // had come; none when that takes longer. Pings, the most frequent of messages, are answered from
  // one look when they came together, whosesoever they are.
  std::optional<std::vector<std::string>> runningSince(std::uint64_t asked);
  static std::string pongAtOnce(const WireMessage<PingPayload>& ping,
                                std::vector<std::string> running);
  // Resumes when the running applications are known, which takes up to 300 ms after the watch
  // began.
  Awaitable<> runningKnown();
  // As far as is known at once.
  bool isPaired(const std::optional<std::string>& token);
  Awaitable<std::optional<PairedDevice>> device(const std::optional<std::string>& token);
  struct Answer;
  Awaitable<std::vector<std::string>> pair(WireMessage<PairRequestPayload> request);
  Awaitable<std::vector<std::string>> synchronise(Uuid requestId);
  Awaitable<std::vector<std::string>> pong(WireMessage<PingPayload> request);
  Awaitable<std::vector<std::string>> runAction(WireMessage<ActionRunPayload> request);
  Awaitable<std::vector<std::string>> runShortcut(std::string bytes);
  Awaitable<std::vector<std::string>> icons(WireMessage<AppIconRequestPayload> request);
  // Those that there are, by key.
  Awaitable<std::map<std::string, Icon>> iconsOf(std::vector<std::string> keys);

  Parts parts_;
  std::uint16_t port_;
  // Those of one listener outlive it, so all listeners share their bounds.
  std::shared_ptr<ConnectionBounds> bounds_;
  std::unique_ptr<WebSocketListener> listener_;
  // Held while a message is read that is not a paired phone's, so that many strangers hold up
  // nobody longer than one.
  AsyncLock strangersTurn_;
  Observers observers_;
  std::shared_ptr<RunningWatch> runningWatch_;
  OpenConnections connections_;
  std::uint64_t pingsAsked_ = 0;                     // how many wanted a look
  std::uint64_t lookedAfter_ = 0;                    // how many of them when the last was made
  std::optional<std::vector<std::string>> running_;  // what it found
  bool isRunning_ = false;
  std::optional<std::string> lastError_;
  std::optional<std::string> shortcutCoachMessage_;
  int portConflictRetries_ = 0;
  unsigned starts_ = 0;
  bool isShutDown_ = false;
};

}  // namespace glintboard
