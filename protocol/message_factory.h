// SPDX-License-Identifier: MIT
// The builder of every message: each sets the type that belongs to the payload. Stateless; any
// thread; nothing is checked here.
#pragma once

#include "protocol/payloads.h"
#include "protocol/wire_message.h"

namespace glintboard::MessageFactory {

// In each, `id` is a fresh UUID for a request, a push and an `app.icon`, and the request's own for
// every other reply. The other parameters are the payload's members in order, see
// `protocol/payloads.h`; `message` is an English sentence for the phone's user, or none.

// Pairing. `secret` is the PIN or the pairing code, by `method`.
WireMessage<PairRequestPayload> pairRequest(PairingMethod method, std::string secret,
                                            std::string deviceName, Uuid deviceId, Uuid id);
WireMessage<PairOKPayload> pairOK(std::string token, Uuid id);
WireMessage<PairFailPayload> pairFail(PairingFailureReason reason,
                                      std::optional<std::string> message, Uuid id);

// Decks and their icons. `tiles` are resolved for this computer, see `DeckTemplateFilter`.
WireMessage<EmptyPayload> deckSync(Uuid id);
WireMessage<DeckSnapshotPayload> deckSnapshot(std::string deckId, std::string name,
                                              std::vector<DeckTile> tiles,
                                              std::vector<std::string> runningBundleIds,
                                              std::map<std::string, std::string> iconRevisions,
                                              Uuid id);
WireMessage<DecksSnapshotPayload> decksSnapshot(std::vector<DeckSnapshotPayload> decks, Uuid id);
// At most `MacIconSyncPolicy::iconRequestBatchSize` keys for each request.
WireMessage<AppIconRequestPayload> appIconRequest(std::vector<std::string> bundleIds, Uuid id);
// `revision` is the SHA-256 of the PNG's bytes, not of their Base64.
WireMessage<AppIconPayload> appIcon(std::string bundleId, std::string revision,
                                    std::string pngBase64, Uuid id);

// Applications. Launch and focus carry the same payload and differ in type.
WireMessage<AppActionPayload> appLaunch(std::string bundleId, Uuid id);
WireMessage<AppActionPayload> appFocus(std::string bundleId, Uuid id);
WireMessage<AppOKPayload> appOK(std::string bundleId, Uuid id);
// `code` says why; the identifier is the request's, or empty in a reply to `deck.sync`.
WireMessage<AppErrorPayload> appError(std::string bundleId, AppErrorCode code,
                                      std::optional<std::string> message, Uuid id);

// Round trip. `rtt` is in seconds; `runningBundleIds` none leaves the member out.
WireMessage<PingPayload> ping(WireDate ts, Uuid id);
WireMessage<PongPayload> pong(WireDate ts, std::optional<double> rtt,
                              std::optional<std::vector<std::string>> runningBundleIds, Uuid id);

// Actions of the computer and Shortcuts.
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
