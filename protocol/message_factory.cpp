// SPDX-License-Identifier: MIT
#include "protocol/message_factory.h"

namespace glintboard::MessageFactory {
namespace {

template <class Payload>
WireMessage<Payload> make(MessageType type, Uuid id, Payload payload) {
  return {std::string(rawValue(type)), id, std::move(payload)};
}

}  // namespace

WireMessage<PairRequestPayload> pairRequest(PairingMethod method, std::string secret,
                                            std::string deviceName, Uuid deviceId, Uuid id) {
  return make(MessageType::pairRequest, id,
              PairRequestPayload{method, std::move(secret), std::move(deviceName), deviceId});
}

WireMessage<PairOKPayload> pairOK(std::string token, Uuid id) {
  return make(MessageType::pairOK, id, PairOKPayload{std::move(token)});
}

WireMessage<PairFailPayload> pairFail(PairingFailureReason reason,
                                      std::optional<std::string> message, Uuid id) {
  return make(MessageType::pairFail, id, PairFailPayload{reason, std::move(message)});
}

WireMessage<EmptyPayload> deckSync(Uuid id) {
  return make(MessageType::deckSync, id, EmptyPayload{});
}

WireMessage<DeckSnapshotPayload> deckSnapshot(std::string deckId, std::string name,
                                              std::vector<DeckTile> tiles,
                                              std::vector<std::string> runningBundleIds,
                                              std::map<std::string, std::string> iconRevisions,
                                              Uuid id) {
  return make(MessageType::deckSnapshot, id,
              DeckSnapshotPayload{std::move(deckId), std::move(name), std::move(tiles),
                                  std::move(runningBundleIds), std::move(iconRevisions)});
}

WireMessage<DecksSnapshotPayload> decksSnapshot(std::vector<DeckSnapshotPayload> decks, Uuid id) {
  return make(MessageType::decksSnapshot, id, DecksSnapshotPayload{std::move(decks)});
}

WireMessage<AppIconRequestPayload> appIconRequest(std::vector<std::string> bundleIds, Uuid id) {
  return make(MessageType::appIconRequest, id, AppIconRequestPayload{std::move(bundleIds)});
}

WireMessage<AppIconPayload> appIcon(std::string bundleId, std::string revision,
                                    std::string pngBase64, Uuid id) {
  return make(MessageType::appIcon, id,
              AppIconPayload{std::move(bundleId), std::move(revision), std::move(pngBase64)});
}

WireMessage<AppActionPayload> appLaunch(std::string bundleId, Uuid id) {
  return make(MessageType::appLaunch, id, AppActionPayload{std::move(bundleId)});
}

WireMessage<AppActionPayload> appFocus(std::string bundleId, Uuid id) {
  return make(MessageType::appFocus, id, AppActionPayload{std::move(bundleId)});
}

WireMessage<AppOKPayload> appOK(std::string bundleId, Uuid id) {
  return make(MessageType::appOK, id, AppOKPayload{std::move(bundleId)});
}

WireMessage<AppErrorPayload> appError(std::string bundleId, AppErrorCode code,
                                      std::optional<std::string> message, Uuid id) {
  return make(MessageType::appError, id,
              AppErrorPayload{std::move(bundleId), code, std::move(message)});
}

WireMessage<PingPayload> ping(WireDate ts, Uuid id) {
  return make(MessageType::ping, id, PingPayload{ts});
}

WireMessage<PongPayload> pong(WireDate ts, std::optional<double> rtt,
                              std::optional<std::vector<std::string>> runningBundleIds, Uuid id) {
  return make(MessageType::pong, id, PongPayload{ts, rtt, std::move(runningBundleIds)});
}

WireMessage<ActionRunPayload> actionRun(std::string actionId, Uuid id) {
  return make(MessageType::actionRun, id, ActionRunPayload{std::move(actionId)});
}

WireMessage<ActionOKPayload> actionOK(std::string actionId, Uuid id) {
  return make(MessageType::actionOK, id, ActionOKPayload{std::move(actionId)});
}

WireMessage<ActionErrorPayload> actionError(std::string actionId, ActionErrorCode code,
                                            std::optional<std::string> message, Uuid id) {
  return make(MessageType::actionError, id,
              ActionErrorPayload{std::move(actionId), code, std::move(message)});
}

WireMessage<ShortcutRunPayload> shortcutRun(std::string shortcutIdentifier,
                                            std::optional<std::string> label, Uuid id) {
  return make(MessageType::shortcutRun, id,
              ShortcutRunPayload{std::move(shortcutIdentifier), std::move(label)});
}

WireMessage<ShortcutOKPayload> shortcutOK(std::string shortcutIdentifier, Uuid id) {
  return make(MessageType::shortcutOK, id, ShortcutOKPayload{std::move(shortcutIdentifier)});
}

WireMessage<ShortcutErrorPayload> shortcutError(std::string shortcutIdentifier,
                                                ShortcutErrorCode code,
                                                std::optional<std::string> message, Uuid id) {
  return make(MessageType::shortcutError, id,
              ShortcutErrorPayload{std::move(shortcutIdentifier), code, std::move(message)});
}

}  // namespace glintboard::MessageFactory
