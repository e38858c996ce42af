// SPDX-License-Identifier: MIT
// The payload of every message. Each record is a JSON object on the wire whose keys are the
// members' names; an optional member may be missing or null when read and is left out when absent.
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

enum class ActionErrorCode { unknown, failed, unauthorized };
template <>
struct EnumText<ActionErrorCode> {
  static constexpr EnumTable<3, ActionErrorCode> table{{
      {ActionErrorCode::unknown, "unknown"},
      {ActionErrorCode::failed, "failed"},
      {ActionErrorCode::unauthorized, "unauthorized"},
  }};
};

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

enum class PairingMethod { qr, pin };
template <>
struct EnumText<PairingMethod> {
  static constexpr EnumTable<2, PairingMethod> table{{
      {PairingMethod::qr, "qr"},
      {PairingMethod::pin, "pin"},
  }};
};

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

struct EmptyPayload {
  bool operator==(const EmptyPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(EmptyPayload, (), ())

struct PairRequestPayload {
  PairingMethod method{};
  std::string secret;  // the PIN or the pairing code, by method
  std::string deviceName;
  Uuid deviceId{};
  bool operator==(const PairRequestPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(PairRequestPayload, (), (method, secret, deviceName, deviceId))

struct PairOKPayload {
  std::string token;
  bool operator==(const PairOKPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(PairOKPayload, (), (token))

struct PairFailPayload {
  PairingFailureReason reason{};
  std::optional<std::string> message;
  bool operator==(const PairFailPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(PairFailPayload, (), (reason, message))

struct AppActionPayload {
  std::string bundleId;
  bool operator==(const AppActionPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(AppActionPayload, (), (bundleId))

struct AppOKPayload {
  std::string bundleId;
  bool operator==(const AppOKPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(AppOKPayload, (), (bundleId))

struct AppErrorPayload {
  std::string bundleId;
  AppErrorCode code{};
  std::optional<std::string> message;
  bool operator==(const AppErrorPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(AppErrorPayload, (), (bundleId, code, message))

struct DeckSnapshotPayload {
  std::string deckId;
  std::string name;
  std::vector<DeckTile> tiles;
  // The bundle identifiers of the deck's applications that are running now.
  std::vector<std::string> runningBundleIds;
  // Icon key (bundle identifier or Shortcut identifier) to the revision of its icon.
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

struct DecksSnapshotPayload {
  std::vector<DeckSnapshotPayload> decks;
  bool operator==(const DecksSnapshotPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(DecksSnapshotPayload, (), (decks))

struct AppIconRequestPayload {
  std::vector<std::string> bundleIds;
  bool operator==(const AppIconRequestPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(AppIconRequestPayload, (), (bundleIds))

struct AppIconPayload {
  std::string bundleId;  // the key under which the icon was requested
  std::string revision;
  std::string pngBase64;
  bool operator==(const AppIconPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(AppIconPayload, (), (bundleId, revision, pngBase64))

struct ActionRunPayload {
  std::string actionId;
  bool operator==(const ActionRunPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(ActionRunPayload, (), (actionId))

struct ActionOKPayload {
  std::string actionId;
  bool operator==(const ActionOKPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(ActionOKPayload, (), (actionId))

struct ActionErrorPayload {
  std::string actionId;
  ActionErrorCode code{};
  std::optional<std::string> message;
  bool operator==(const ActionErrorPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(ActionErrorPayload, (), (actionId, code, message))

struct ShortcutRunPayload {
  std::string shortcutIdentifier;
  std::optional<std::string> label;  // the key's label, for messages
  bool operator==(const ShortcutRunPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(ShortcutRunPayload, (), (shortcutIdentifier, label))

struct ShortcutOKPayload {
  std::string shortcutIdentifier;
  bool operator==(const ShortcutOKPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(ShortcutOKPayload, (), (shortcutIdentifier))

struct ShortcutErrorPayload {
  std::string shortcutIdentifier;
  ShortcutErrorCode code{};
  std::optional<std::string> message;
  bool operator==(const ShortcutErrorPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(ShortcutErrorPayload, (), (shortcutIdentifier, code, message))

struct PingPayload {
  WireDate ts;
  bool operator==(const PingPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(PingPayload, (), (ts))

struct PongPayload {
  WireDate ts;  // the ping's own
  // Seconds from the ping's `ts` to now by the agent's wall clock.
  std::optional<double> rtt;
  std::optional<std::vector<std::string>> runningBundleIds;
  bool operator==(const PongPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(PongPayload, (), (ts, rtt, runningBundleIds))

}  // namespace glintboard
