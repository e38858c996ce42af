// SPDX-License-Identifier: MIT
// The builder of every message.
#pragma once

#include "protocol/payloads.h"
#include "protocol/wire_message.h"

namespace glintboard::MessageFactory {

// `id` is a fresh UUID for a request or a push, and the request's own for a reply.
WireMessage<PairRequestPayload> pairRequest(PairingMethod method, std::string secret,
                                            std::string deviceName, Uuid deviceId, Uuid id);
WireMessage<PairOKPayload> pairOK(std::string token, Uuid id);
WireMessage<PairFailPayload> pairFail(PairingFailureReason reason,
                                      std::optional<std::string> message, Uuid id);
WireMessage<EmptyPayload> deckSync(Uuid id);
WireMessage<DeckSnapshotPayload> deckSnapshot(std::string deckId, std::string name,
                                              std::vector<DeckTile> tiles,
                                              std::vector<std::string> runningBundleIds,
                                              std::map<std::string, std::string> iconRevisions,
                                              Uuid id);
WireMessage<DecksSnapshotPayload> decksSnapshot(std::vector<DeckSnapshotPayload> decks, Uuid id);
WireMessage<AppIconRequestPayload> appIconRequest(std::vector<std::string> bundleIds, Uuid id);
WireMessage<AppIconPayload> appIcon(std::string bundleId, std::string revision,
                                    std::string pngBase64, Uuid id);
WireMessage<AppActionPayload> appLaunch(std::string bundleId, Uuid id);
WireMessage<AppActionPayload> appFocus(std::string bundleId, Uuid id);
WireMessage<AppOKPayload> appOK(std::string bundleId, Uuid id);
WireMessage<AppErrorPayload> appError(std::string bundleId, AppErrorCode code,
                                      std::optional<std::string> message, Uuid id);
WireMessage<PingPayload> ping(WireDate ts, Uuid id);
WireMessage<PongPayload> pong(WireDate ts, std::optional<double> rtt,
                              std::optional<std::vector<std::string>> runningBundleIds, Uuid id);
WireMessage<ActionRunPayload> actionRun(std::string actionId, Uuid id);
WireMessage<ActionOKPayload> actionOK(std::string actionId, Uuid id);
WireMessage<ActionErrorPayload> actionError(std::string actionId, ActionErrorCode code,
                                            std::optional<std::string> message, Uuid id);
WireMessage<ShortcutRunPayload> shortcutRun(std::string shortcutIdentifier,
                                            std::optional<std::string> label, Uuid id);
WireMessage<ShortcutOKPayload> shortcutOK(std::string shortcutIdentifier, Uuid id);
WireMessage<ShortcutErrorPayload> shortcutError(std::string shortcutIdentifier,
                                                ShortcutErrorCode code,
                                                std::optional<std::string> message, Uuid id);

}  // namespace glintboard::MessageFactory
