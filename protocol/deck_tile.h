// SPDX-License-Identifier: MIT
// The keys of a deck. In files and on the wire a key is an object of these members.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "protocol/enum_text.h"
#include "protocol/record.h"

namespace glintboard {

// What a key does.
enum class DeckTileKind { app, action, shortcut };
template <>
struct EnumText<DeckTileKind> {
  static constexpr EnumTable<3, DeckTileKind> table{{
      {DeckTileKind::app, "app"},
      {DeckTileKind::action, "action"},
      {DeckTileKind::shortcut, "shortcut"},
  }};
};

// The actions that a key can run without an application; the raw value is the action's id.
enum class BuiltinAction { volumeDown, volumeUp, volumeMute };
template <>
struct EnumText<BuiltinAction> {
  static constexpr EnumTable<3, BuiltinAction> table{{
      {BuiltinAction::volumeDown, "system.volume.down"},
      {BuiltinAction::volumeUp, "system.volume.up"},
      {BuiltinAction::volumeMute, "system.volume.mute"},
  }};
};
std::string_view label(BuiltinAction action);
std::string_view symbolName(BuiltinAction action);

// One key.
struct DeckTile {
  // The identity of the key within its deck: the bundle identifier of an application, the id of an
  // action, the identifier of a Shortcut. Derived by every way of making a tile below; only reading
  // keeps another.
  std::string id;
  std::int64_t slot = 0;  // 1 is the first key
  DeckTileKind kind = DeckTileKind::app;
  std::string label;
  std::string bundleId;  // empty for actions and Shortcuts
  std::optional<std::string> actionId;
  std::optional<std::string> shortcutIdentifier;
  std::optional<std::string> iconName;    // of an application's artwork
  std::optional<std::string> iconSymbol;  // of an action's or a Shortcut's glyph
  // Identifiers under which the same application may be installed instead, in order of preference.
  std::optional<std::vector<std::string>> alternateBundleIds;

  // The glyph of a Shortcut key that has no symbol of its own.
  static constexpr std::string_view shortcutSymbolName =
      "arrow.triangle.turn.up.right.diamond.fill";

  static DeckTile app(std::int64_t slot, std::string label, std::string bundleId,
                      std::optional<std::string> iconName = {},
                      std::optional<std::vector<std::string>> alternateBundleIds = {});
  static DeckTile action(std::int64_t slot, BuiltinAction builtin);
  static DeckTile shortcut(std::int64_t slot, std::string label, std::string shortcutIdentifier,
                           std::string iconSymbol);

  // The same key in another slot.
  DeckTile withSlot(std::int64_t newSlot) const;
  // `bundleId`, then the alternates.
  std::vector<std::string> lookupBundleIds() const;
  // The identity that the key's content gives it.
  const std::string& derivedId() const;

  bool operator==(const DeckTile&) const = default;
};
BOOST_DESCRIBE_STRUCT(DeckTile, (),
                      (id, slot, kind, label, bundleId, actionId, shortcutIdentifier, iconName,
                       iconSymbol, alternateBundleIds))

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
