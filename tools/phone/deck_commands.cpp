// SPDX-License-Identifier: MIT
#include <algorithm>

#include "protocol/message_factory.h"
#include "tools/phone/command_context.h"

namespace glintboard::phone {
namespace {

void printDecks(Output& output, const DecksSnapshotPayload& snapshot) {
  for (const auto& deck : snapshot.decks) {
    output.line(deck.name + " (" + deck.deckId + ")");
    std::vector<std::vector<std::string>> rows{{"Slot", "Label", "Kind", "Identifier", "Running"}};
    for (const auto& tile : deck.tiles) {
      const bool running = tile.kind == DeckTileKind::app &&
                           std::ranges::count(deck.runningBundleIds, tile.bundleId) != 0;
      rows.push_back({std::to_string(tile.slot), tile.label, std::string(rawValue(tile.kind)),
                      tile.derivedId(), running ? "yes" : ""});
    }
    output.table(rows);
  }
  output.record(
      {{"ok", true}, {"decks", boost::json::parse(jsonText(snapshot)).as_object().at("decks")}});
}

// The key in the slot given on the command line, from the current decks.
DeckTile findTile(const Arguments& arguments, AgentSession& session) {
  const std::string deckId(rawValue(arguments.deck));
  const auto snapshot = session.sync();
  const auto deck = std::ranges::find(snapshot.decks, deckId, &DeckSnapshotPayload::deckId);
  if (deck != snapshot.decks.end()) {
    const auto tile = std::ranges::find(deck->tiles, arguments.slot, &DeckTile::slot);
    if (tile != deck->tiles.end()) {
      return *tile;
    }
  }
  throw PhoneFailure(ExitCode::usage, "no_key",
                     "The " + deckId + " deck has no key in slot " +
                         std::to_string(arguments.slot) + ". Run: glintboard-phone decks");
}

void report(Output& output, const DeckTile& tile, const ReceivedMessage& reply,
            MessageType expected) {
  if (!isOfType(reply, expected)) {
    throwRefusal(reply);
  }
  output.line(tile.label + ": done.");
  output.record({{"ok", true},
                 {"type", reply.envelope.type},
                 {"slot", tile.slot},
                 {"label", tile.label},
                 {"identifier", tile.derivedId()}});
}

}  // namespace

void decksCommand(const CommandContext& context) {
  printDecks(context.output, context.openPaired().sync());
}

void watchCommand(const CommandContext& context) {
  auto session = context.openPaired();
  // An unknown phone gets neither pushes nor an error; `sync` detects it.
  session.sync();
  context.output.note("Watching the decks. Stop with Ctrl-C.");
  context.output.record({{"ok", true}, {"watching", true}});
  const auto end = context.arguments.watchFor
                       ? std::chrono::steady_clock::now() + *context.arguments.watchFor
                       : Deadline::max();
  while (const auto message = session.receive(end)) {
    if (isOfType(*message, MessageType::decksSnapshot)) {
      printDecks(context.output, payloadOf<DecksSnapshotPayload>(*message));
    }
  }
}

void tapCommand(const CommandContext& context) {
  auto session = context.openPaired();
  const DeckTile tile = findTile(context.arguments, session);
  const std::string& identifier = tile.derivedId();
  const Uuid id = randomUuid();
  switch (tile.kind) {
    case DeckTileKind::app:
      report(context.output, tile, session.ask(MessageFactory::appLaunch(identifier, id)),
             MessageType::appOK);
      break;
    case DeckTileKind::action:
      report(context.output, tile, session.ask(MessageFactory::actionRun(identifier, id)),
             MessageType::actionOK);
      break;
    case DeckTileKind::shortcut:
      report(context.output, tile,
             session.ask(MessageFactory::shortcutRun(identifier, tile.label, id)),
             MessageType::shortcutOK);
      break;
  }
}

void focusCommand(const CommandContext& context) {
  auto session = context.openPaired();
  const DeckTile tile = findTile(context.arguments, session);
  if (tile.kind != DeckTileKind::app) {
    throw PhoneFailure(ExitCode::usage, "not_an_app",
                       tile.label + " is no application; only applications can be focused.");
  }
  report(context.output, tile, session.ask(MessageFactory::appFocus(tile.bundleId, randomUuid())),
         MessageType::appOK);
}

}  // namespace glintboard::phone
