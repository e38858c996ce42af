// SPDX-License-Identifier: MIT
// The payload of every message. On the wire each record is a JSON object whose keys are the
// members' names. An optional member may be missing or null when read, and is left out when it has
// no value; every other member is required unless its record says otherwise. Unknown keys are
// ignored. Texts are UTF-8. The enumerations travel as the texts in their tables; any other text is
// a decode error. docs/protocol.md describes the exchange for the authors of phones.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "protocol/deck_tile.h"
#include "protocol/enum_text.h"
#include "protocol/record.h"
#include "protocol/uuid.h"
#include "protocol/wire_date.h"

namespace glintboard {

// Why an `app.launch` or `app.focus` failed: the application is not installed, or for `app.focus`
// not running; it did not start; its window did not come to the front; the connection is not
// paired.
enum class AppErrorCode { notFound, launchFailed, focusFailed, unauthorized };
template <>
struct EnumText<AppErrorCode> {
  static constexpr EnumTable<4, AppErrorCode> table{{
      {AppErrorCode::notFound, "not_found"},
      {AppErrorCode::launchFailed, "launch_failed"},
      {AppErrorCode::focusFailed, "focus_failed"},
      {AppErrorCode::unauthorized, "unauthorized"},
  }};
};

// Why an `action.run` failed: no action has the id; the action failed, for example because no sound
// server answers; the connection is not paired.
enum class ActionErrorCode { unknown, failed, unauthorized };
template <>
struct EnumText<ActionErrorCode> {
  static constexpr EnumTable<3, ActionErrorCode> table{{
      {ActionErrorCode::unknown, "unknown"},
      {ActionErrorCode::failed, "failed"},
      {ActionErrorCode::unauthorized, "unauthorized"},
  }};
};

// Why a `shortcut.run` failed: no Shortcut has the identifier; its command could not be started or
// ended with an error; the user cancelled it or withholds a permission; it did not end in time; the
// connection is not paired.
enum class ShortcutErrorCode { notFound, runFailed, cancelled, timedOut, unauthorized };
template <>
struct EnumText<ShortcutErrorCode> {
  static constexpr EnumTable<5, ShortcutErrorCode> table{{
      {ShortcutErrorCode::notFound, "not_found"},
      {ShortcutErrorCode::runFailed, "run_failed"},
      {ShortcutErrorCode::cancelled, "cancelled"},
      {ShortcutErrorCode::timedOut, "timed_out"},
      {ShortcutErrorCode::unauthorized, "unauthorized"},
  }};
};

// Which secret a phone presents: the code scanned from the QR code, or the PIN typed by its user.
enum class PairingMethod { qr, pin };
template <>
struct EnumText<PairingMethod> {
  static constexpr EnumTable<2, PairingMethod> table{{
      {PairingMethod::qr, "qr"},
      {PairingMethod::pin, "pin"},
  }};
};

// Why a `pair.request` failed: wrong or malformed PIN; wrong code; pairing by PIN is locked after
// `maxPinAttempts` wrong PINs; another phone is paired. The agent never sends `unauthorized`, which
// phones must accept all the same.
enum class PairingFailureReason { invalidPIN, invalidCode, lockout, alreadyPaired, unauthorized };
template <>
struct EnumText<PairingFailureReason> {
  static constexpr EnumTable<5, PairingFailureReason> table{{
      {PairingFailureReason::invalidPIN, "invalid_pin"},
      {PairingFailureReason::invalidCode, "invalid_code"},
      {PairingFailureReason::lockout, "lockout"},
      {PairingFailureReason::alreadyPaired, "already_paired"},
      {PairingFailureReason::unauthorized, "unauthorized"},
  }};
};

// `deck.sync`, from the phone; the agent replies `decks.snapshot`. Written as {}.
struct EmptyPayload {
  bool operator==(const EmptyPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(EmptyPayload, (), ())

// `pair.request`, from a phone; the agent replies `pair.ok` or `pair.fail`. The one message that
// needs no token.
struct PairRequestPayload {
  PairingMethod method{};
  // The six digits of the PIN or the 43 characters of the pairing code, by `method`.
  std::string secret;
  // The name under which the agent shows the phone.
  std::string deviceName;
  // The phone's own identity, the same at each pairing.
  Uuid deviceId{};
  bool operator==(const PairRequestPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(PairRequestPayload, (), (method, secret, deviceName, deviceId))

// `pair.ok`, from the agent.
struct PairOKPayload {
  // The credential that the phone presents in the header `authHeaderName` of later upgrade
  // requests.
  std::string token;
  bool operator==(const PairOKPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(PairOKPayload, (), (token))

// `pair.fail`, from the agent.
struct PairFailPayload {
  PairingFailureReason reason{};
  // An English sentence for the phone's user, as in every message below.
  std::optional<std::string> message;
  bool operator==(const PairFailPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(PairFailPayload, (), (reason, message))

// `app.launch` and `app.focus`, from the phone; the agent replies `app.ok` or `app.error`.
struct AppActionPayload {
  std::string bundleId;
  bool operator==(const AppActionPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(AppActionPayload, (), (bundleId))

// `app.ok`, from the agent: the application was started or has come to the front.
struct AppOKPayload {
  std::string bundleId;
  bool operator==(const AppOKPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(AppOKPayload, (), (bundleId))

// `app.error`, from the agent; also its reply to `deck.sync` on a connection without a valid token.
struct AppErrorPayload {
  // The request's identifier; empty in a reply to `deck.sync`.
  std::string bundleId;
  AppErrorCode code{};
  std::optional<std::string> message;
  bool operator==(const AppErrorPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(AppErrorPayload, (), (bundleId, code, message))

// One deck as a phone shows it: an item of `decks.snapshot`, and the payload of `deck.snapshot`,
// which the agent never sends. Read without `runningBundleIds` or `iconRevisions`, these are empty;
// both are always written.
struct DeckSnapshotPayload {
  // The raw value of a `DeckCategoryID`.
  std::string deckId;
  // The name shown to the user.
  std::string name;
  // Installed applications, actions and Shortcuts in the order of the deck; slots may have gaps.
  std::vector<DeckTile> tiles;
  // The bundle identifiers of the deck's applications that are running now.
  std::vector<std::string> runningBundleIds;
  // Icon key (bundle identifier or Shortcut identifier) to the revision of its icon: the SHA-256 of
  // the PNG, 64 lower-case hexadecimal digits. Keys without an icon are left out.
  std::map<std::string, std::string> iconRevisions;
  bool operator==(const DeckSnapshotPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(DeckSnapshotPayload, (),
                      (deckId, name, tiles, runningBundleIds, iconRevisions))
template <>
struct RecordRules<DeckSnapshotPayload> {
  static constexpr bool mayBeAbsent(std::string_view name) {
    return name == "runningBundleIds" || name == "iconRevisions";
  }
  template <class IsPresent>
  static void complete(DeckSnapshotPayload&, IsPresent) {}
};

// `decks.snapshot`, from the agent: the reply to `deck.sync`, and pushed with a fresh id to every
// paired connection when the decks change.
struct DecksSnapshotPayload {
  // In the order of `DeckTemplates::categoryOrder`.
  std::vector<DeckSnapshotPayload> decks;
  bool operator==(const DecksSnapshotPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(DecksSnapshotPayload, (), (decks))

// `app.icon.request`, from the phone; the agent replies one `app.icon` for each key that has an
// icon, and nothing for the others.
struct AppIconRequestPayload {
  // Icon keys, of applications and Shortcuts alike.
  std::vector<std::string> bundleIds;
  bool operator==(const AppIconRequestPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(AppIconRequestPayload, (), (bundleIds))

// `app.icon`, from the agent; each has a fresh id.
struct AppIconPayload {
  // The key under which the icon was requested.
  std::string bundleId;
  // As in `DeckSnapshotPayload::iconRevisions`.
  std::string revision;
  // A PNG of 128 × 128 pixels in standard Base64.
  std::string pngBase64;
  bool operator==(const AppIconPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(AppIconPayload, (), (bundleId, revision, pngBase64))

// `action.run`, from the phone; the agent replies `action.ok` or `action.error`.
struct ActionRunPayload {
  // The raw value of a `BuiltinAction`.
  std::string actionId;
  bool operator==(const ActionRunPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(ActionRunPayload, (), (actionId))

// `action.ok`, from the agent: the action is done.
struct ActionOKPayload {
  std::string actionId;
  bool operator==(const ActionOKPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(ActionOKPayload, (), (actionId))

// `action.error`, from the agent.
struct ActionErrorPayload {
  std::string actionId;
  ActionErrorCode code{};
  std::optional<std::string> message;
  bool operator==(const ActionErrorPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(ActionErrorPayload, (), (actionId, code, message))

// `shortcut.run`, from the phone; the agent replies `shortcut.ok` or `shortcut.error` when the
// Shortcut's command has ended.
struct ShortcutRunPayload {
  // Identifies the Shortcut for the `shortcuts` tool; echoed unchanged in the reply.
  std::string shortcutIdentifier;
  // The key's label, for messages to the user.
  std::optional<std::string> label;
  bool operator==(const ShortcutRunPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(ShortcutRunPayload, (), (shortcutIdentifier, label))

// `shortcut.ok`, from the agent: the command ended without an error.
struct ShortcutOKPayload {
  std::string shortcutIdentifier;
  bool operator==(const ShortcutOKPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(ShortcutOKPayload, (), (shortcutIdentifier))

// `shortcut.error`, from the agent.
struct ShortcutErrorPayload {
  std::string shortcutIdentifier;
  ShortcutErrorCode code{};
  std::optional<std::string> message;
  bool operator==(const ShortcutErrorPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(ShortcutErrorPayload, (), (shortcutIdentifier, code, message))

// `ping`, from the phone; the agent replies `pong`. Not the ping frame of the WebSocket protocol.
struct PingPayload {
  // When the phone sent it, by the phone's clock.
  WireDate ts;
  bool operator==(const PingPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(PingPayload, (), (ts))

// `pong`, from the agent, which always fills all three members.
struct PongPayload {
  // The ping's own.
  WireDate ts;
  // Seconds from the ping's `ts` to now by the agent's wall clock; negative when the phone's clock
  // is ahead.
  std::optional<double> rtt;
  // The applications on any deck that are running now. Empty is written as an empty array.
  std::optional<std::vector<std::string>> runningBundleIds;
  bool operator==(const PongPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(PongPayload, (), (ts, rtt, runningBundleIds))

}  // namespace glintboard
