// SPDX-License-Identifier: MIT
// From a message to its replies, without a socket.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <variant>

#include "agent/connection/replies.h"
#include "agent/connection/running_watch.h"
#include "agent/decks/deck_store.h"
#include "agent/pairing/pairing_service.h"
#include "agent_core/actions/action_handlers.h"
#include "agent_core/apps/app_handlers.h"
#include "agent_core/icons/app_icon_provider.h"
#include "agent_core/icons/shortcut_icon_provider.h"
#include "agent_core/shortcuts/shortcut_handlers.h"
#include "platform/async_lock.h"
#include "platform/workspace_client.h"

namespace glintboard {

// Parses a message, checks whether its sender is paired, calls the service that it is meant for
// and encodes the replies. Messages may be dispatched concurrently.
//
// Used on the service loop only, whose executor it is given. It must outlive every answer.
class MessageDispatcher {
 public:
  // The references must outlive the dispatcher.
  struct Parts {
    PairingService& pairingService;
    AppMessageHandler appMessageHandler;
    ActionMessageHandler actionMessageHandler;
    ShortcutWireHandler shortcutWireHandler;
    DeckStore& deckStore;
    AppIconProvider& iconProvider;
    ShortcutIconProvider& shortcutIconProvider;
    WorkspaceClient workspace;
    // Runs the actions, which may block.
    asio::any_io_executor actionLane;
    // Switches the desktop's watch of running applications.
    RunningWatch::Switch watchRunningApplications;
  };
  // The replies where they are available at once, which those to a ping mostly are; otherwise an
  // operation that gives them. Both are empty after a failure, which is logged; neither throws.
  using Answer = std::variant<Replies, Awaitable<Replies>>;

  // The running applications of the decks; none before they are read.
  using Running = std::optional<std::vector<std::string>>;
  // Shared by the answers to messages that one connection received together: their pings share one
  // reading of the decks file, which is half of a ping's cost. To be cleared before the connection
  // waits; must outlive the answer.
  struct Batch {
    Running running;
  };

  // Calls `shortcutNeedsUser` when the reply to a Shortcut says that it waits for the user.
  MessageDispatcher(asio::any_io_executor executor, Parts parts,
                    std::function<void()> shortcutNeedsUser);

  // The answer to a message from a connection that presented `token`. Only pairing requests are
  // open to a sender whose token names no paired device.
  Answer answer(std::string message, const std::optional<std::string>& token, Batch& batch);
  // The same as one operation, for a message by itself.
  Awaitable<Replies> dispatch(std::string message, std::optional<std::string> token);

  // The encoded "decks.snapshot" of the present decks. Throws WireCodecError.
  Awaitable<std::string> decksSnapshot(Uuid id);
  // Sets the number of connections of paired phones. Without one, running applications are not
  // watched. With several, the pings that they send at the same time share one reading.
  void setPairedConnections(std::size_t count);

 private:
  struct PairedAnswer;

  Answer answerOrThrow(std::string message, const std::optional<std::string>& token, Batch& batch);
  Answer answerPaired(WireMessageParser::ParsedMessage parsed, std::string message, Batch& batch);
  // The pong where it is available at once.
  Answer answerPing(WireMessage<PingPayload> ping, Batch& batch);
  // `token` is none when it is known to name no paired device.
  Awaitable<Replies> answerUnpaired(std::string message, std::optional<std::string> token);
  // None while the stored list is loading.
  std::optional<bool> isPaired(const std::optional<std::string>& token);
  // Waits for the running applications, for `RunningWatch::timeout` at most.
  Awaitable<> runningKnown();

  Awaitable<Replies> pair(WireMessage<PairRequestPayload> request);
  Awaitable<Replies> synchronise(Uuid requestId);
  Awaitable<Replies> pong(WireMessage<PingPayload> ping, Batch& batch);
  Awaitable<Replies> handleApp(Awaitable<AppMessageResponse> handling);
  Awaitable<Replies> runAction(WireMessage<ActionRunPayload> request);
  Awaitable<Replies> runShortcut(std::string message);

  Parts parts_;
  std::function<void()> shortcutNeedsUser_;
  std::shared_ptr<RunningWatch> runningWatch_;
  std::size_t pairedConnections_ = 0;
  // The next reading, held by every ping that waits for it. Null while none does.
  std::shared_ptr<Running> nextReading_;
  // Held while a message of an unpaired sender is parsed and refused: one such message is handled
  // per turn of the loop, however many strangers send.
  AsyncLock strangersTurn_;
};

}  // namespace glintboard
