// SPDX-License-Identifier: MIT
// The keys of a deck. In files and on the wire a key is a JSON object of the members of `DeckTile`.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "protocol/enum_text.h"
#include "protocol/record.h"

namespace glintboard {

// What a key does: bring an application to the front or start it, run an action of the computer, or
// run a Shortcut.
enum class DeckTileKind { app, action, shortcut };
template <>
struct EnumText<DeckTileKind> {
  static constexpr EnumTable<3, DeckTileKind> table{{
      {DeckTileKind::app, "app"},
      {DeckTileKind::action, "action"},
      {DeckTileKind::shortcut, "shortcut"},
  }};
};

// The actions that a key can run without an application: change the sound volume by a step, or
// toggle its mute. The raw value is the action's id in `actionId` and on the wire.
enum class BuiltinAction { volumeDown, volumeUp, volumeMute };
template <>
struct EnumText<BuiltinAction> {
  static constexpr EnumTable<3, BuiltinAction> table{{
      {BuiltinAction::volumeDown, "system.volume.down"},
      {BuiltinAction::volumeUp, "system.volume.up"},
      {BuiltinAction::volumeMute, "system.volume.mute"},
  }};
};
// The English label of the action's key.
std::string_view label(BuiltinAction action);
// The name of the action's glyph, an SF Symbol of the phone; `ui/design/symbols.h` draws the same.
std::string_view symbolName(BuiltinAction action);

// One key. Required when read: `slot`, `label`, `bundleId`; a missing `kind` or `id` is derived,
// see `RecordRules` below. Empty optionals are not written.
struct DeckTile {
  // The identity of the key within its deck: the bundle identifier of an application, the id of an
  // action, the identifier of a Shortcut. The factories below derive it; reading keeps what the
  // text says.
  std::string id;
  // The position on the deck, from 1; slots may have gaps. Not checked here.
  std::int64_t slot = 0;
  DeckTileKind kind = DeckTileKind::app;
  // The text under the key.
  std::string label;
  // The application; empty for actions and Shortcuts.
  std::string bundleId;
  // Present for actions: the raw value of a `BuiltinAction`.
  std::optional<std::string> actionId;
  // Present for Shortcuts, in the letter case in which it was stored.
  std::optional<std::string> shortcutIdentifier;
  // The name of an application's artwork on the phone.
  std::optional<std::string> iconName;
  // The name of an action's or a Shortcut's glyph.
  std::optional<std::string> iconSymbol;
  // Identifiers under which the same application may be installed instead, in order of preference.
  std::optional<std::vector<std::string>> alternateBundleIds;

  // The glyph of a Shortcut key that has no symbol of its own.
  static constexpr std::string_view shortcutSymbolName =
      "arrow.triangle.turn.up.right.diamond.fill";

  // A key of each kind, with its derived `id`. Texts are taken as they are; a Shortcut's glyph is
  // not replaced when it is empty.
  static DeckTile app(std::int64_t slot, std::string label, std::string bundleId,
                      std::optional<std::string> iconName = {},
                      std::optional<std::vector<std::string>> alternateBundleIds = {});
  static DeckTile action(std::int64_t slot, BuiltinAction builtin);
  static DeckTile shortcut(std::int64_t slot, std::string label, std::string shortcutIdentifier,
                           std::string iconSymbol);

  // The same key in another slot, with its derived `id`.
  DeckTile withSlot(std::int64_t newSlot) const;
  // `bundleId`, then the alternates.
  std::vector<std::string> lookupBundleIds() const;
  // The identity that the key's content gives it: see `id`. Falls back to `bundleId` when the
  // member of its kind is missing. The reference is into this tile.
  const std::string& derivedId() const;

  bool operator==(const DeckTile&) const = default;
};
BOOST_DESCRIBE_STRUCT(DeckTile, (),
                      (id, slot, kind, label, bundleId, actionId, shortcutIdentifier, iconName,
                       iconSymbol, alternateBundleIds))

// A text may lack `kind` and `id`. The kind is then `action` if there is an `actionId`, else
// `shortcut` if there is a `shortcutIdentifier`, else `app`; the id is derived.
template <>
struct RecordRules<DeckTile> {
  static constexpr bool mayBeAbsent(std::string_view name) {
    return name == "id" || name == "kind";
  }
  template <class IsPresent>
  static void complete(DeckTile& tile, IsPresent isPresent) {
    if (!isPresent("kind")) {
      tile.kind = tile.actionId             ? DeckTileKind::action
                  : tile.shortcutIdentifier ? DeckTileKind::shortcut
                                            : DeckTileKind::app;
    }
    if (!isPresent("id")) {
      tile.id = tile.derivedId();
    }
  }
};

}  // namespace glintboard
