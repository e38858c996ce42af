// SPDX-License-Identifier: MIT
#include <algorithm>
#include <set>

#include "protocol/base64.h"
#include "protocol/mac_icon_sync_policy.h"
#include "protocol/message_factory.h"
#include "protocol/sha256.h"
#include "tools/phone/command_context.h"
#include "tools/phone/icon_cache.h"

namespace glintboard::phone {
namespace {

PhoneFailure badIcon(const std::string& key, const std::string& why) {
  return {ExitCode::refused, "bad_icon", "The agent sent an icon of " + key + " that " + why + "."};
}

// The PNG of a message. Throws PhoneFailure "bad_icon" if it is damaged or of another revision.
std::string checkedImage(const AppIconPayload& icon) {
  const auto png = base64Decode(icon.pngBase64);
  if (!png) {
    throw badIcon(icon.bundleId, "is not Base64");
  }
  if (!png->starts_with("\x89PNG\r\n\x1a\n")) {
    throw badIcon(icon.bundleId, "is no PNG image");
  }
  if (sha256Hex(*png) != icon.revision) {
    throw badIcon(icon.bundleId, "does not match its revision");
  }
  return *png;
}

// Requests one batch. A key without an icon gets no reply, so a ping follows the request: messages
// are answered in order, and the pong marks the end of the replies.
void fetchBatch(AgentSession& session, const IconCache& cache,
                const std::vector<std::string>& batch, std::set<std::string>& fetched) {
  session.send(MessageFactory::appIconRequest(batch, randomUuid()));
  const auto ping = MessageFactory::ping(WireDate::now(), randomUuid());
  session.send(ping);
  session.replyTo(ping.id, [&](const ReceivedMessage& message) {
    if (!isOfType(message, MessageType::appIcon)) {
      return;
    }
    const auto icon = payloadOf<AppIconPayload>(message);
    if (std::ranges::count(batch, icon.bundleId) == 0) {
      throw badIcon(icon.bundleId, "was not requested");
    }
    cache.store(icon.bundleId, checkedImage(icon));
    fetched.insert(MacIconSyncPolicy::normalized(icon.bundleId));
  });
}

void report(Output& output, const IconCache& cache, const std::vector<DeckTile>& tiles,
            const std::set<std::string>& fetched) {
  std::set<std::string> keys;
  for (const auto& tile : tiles) {
    if (const auto key = MacIconSyncPolicy::iconKey(tile)) {
      keys.insert(MacIconSyncPolicy::normalized(*key));
    }
  }
  std::vector<std::vector<std::string>> rows{{"Icon", "State", "File"}};
  boost::json::array icons;
  boost::json::array missing;
  for (const auto& key : keys) {
    const auto revision = cache.revision(key);
    if (!revision) {
      rows.push_back({key, "none", ""});
      missing.emplace_back(key);
      continue;
    }
    const std::string state = fetched.contains(key) ? "fetched" : "kept";
    rows.push_back({key, state, cache.file(key).string()});
    icons.emplace_back(boost::json::object{{"key", key},
                                           {"file", cache.file(key).string()},
                                           {"revision", *revision},
                                           {"state", state}});
  }
  output.table(rows);
  output.record({{"ok", true}, {"icons", std::move(icons)}, {"missing", std::move(missing)}});
}

}  // namespace

void iconsCommand(const CommandContext& context) {
  auto session = context.openPaired();
  std::vector<DeckTile> tiles;
  std::map<std::string, std::string> revisions;
  for (auto& deck : session.sync().decks) {
    tiles.insert(tiles.end(), deck.tiles.begin(), deck.tiles.end());
    revisions.merge(deck.iconRevisions);
  }
  const IconCache cache(context.arguments.iconFolder);
  auto wanted = cache.outdated(tiles, revisions);
  std::set<std::string> fetched;
  while (!wanted.empty()) {
    const auto size = std::min(wanted.size(), MacIconSyncPolicy::iconRequestBatchSize);
    const auto end = wanted.begin() + static_cast<std::ptrdiff_t>(size);
    fetchBatch(session, cache, {wanted.begin(), end}, fetched);
    wanted.erase(wanted.begin(), end);
  }
  report(context.output, cache, tiles, fetched);
}

}  // namespace glintboard::phone
