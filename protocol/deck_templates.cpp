// SPDX-License-Identifier: MIT
#include "protocol/deck_templates.h"

#include "protocol/json_writer.h"

namespace glintboard {
namespace {

// The applications of the built-in decks, each with slot 0 until it is placed.
const DeckTile obs =
    DeckTile::app(0, "OBS", "com.obsproject.obs-studio", "obs", {{"com.obsproject.OBS"}});
const DeckTile discord =
    DeckTile::app(0, "Discord", "com.hnc.Discord", "discord", {{"com.discord.Discord"}});
const DeckTile chrome = DeckTile::app(0, "Chrome", "com.google.Chrome", "chrome");
const DeckTile safari = DeckTile::app(0, "Safari", "com.apple.Safari", "safari");
const DeckTile spotify = DeckTile::app(0, "Spotify", "com.spotify.client", "spotify");
const DeckTile twitch = DeckTile::app(0, "Twitch", "com.twitch.desktop", "twitch");
const DeckTile streamlabs = DeckTile::app(0, "Streamlabs", "com.streamlabs.desktop", "streamlabs");
const DeckTile messages = DeckTile::app(0, "Messages", "com.apple.MobileSMS", "messages");
const DeckTile music = DeckTile::app(0, "Music", "com.apple.Music", "music");
const DeckTile terminal = DeckTile::app(0, "Terminal", "com.apple.Terminal", "terminal");
const DeckTile finder = DeckTile::app(0, "Finder", "com.apple.finder", "finder");
const DeckTile settings = DeckTile::app(0, "Settings", "com.apple.systempreferences", "settings",
                                        {{"com.apple.SystemPreferences"}});
const DeckTile steam = DeckTile::app(0, "Steam", "com.valvesoftware.steam", "steam");
const DeckTile geforceNow = DeckTile::app(0, "GeForce NOW", "com.nvidia.geforcenow", "geforcenow");
const DeckTile epicGames =
    DeckTile::app(0, "Epic Games", "com.epicgames.EpicGamesLauncher", "epic");

DeckTemplate numbered(DeckCategoryID category, std::vector<DeckTile> tiles) {
  for (std::size_t i = 0; i < tiles.size(); ++i) {
    tiles[i] = tiles[i].withSlot(static_cast<std::int64_t>(i) + 1);
  }
  return {std::string(rawValue(category)), std::string(displayName(category)), std::move(tiles)};
}

}  // namespace

std::string_view displayName(DeckCategoryID category) {
  switch (category) {
    case DeckCategoryID::streaming:
      return "Streaming";
    case DeckCategoryID::gaming:
      return "Gaming";
  }
  return {};
}

namespace DeckTemplates {

const DeckTemplate& streaming() {
  static const DeckTemplate deck = numbered(
      DeckCategoryID::streaming, {obs, discord, chrome, safari, spotify, twitch, streamlabs,
                                  messages, music, terminal, finder, settings});
  return deck;
}

const DeckTemplate& gaming() {
  static const DeckTemplate deck =
      numbered(DeckCategoryID::gaming, {steam, discord, geforceNow, epicGames, safari, messages,
                                        spotify, obs, terminal, finder, music, settings});
  return deck;
}

const DeckTemplate& bundledTemplate(DeckCategoryID category) {
  return category == DeckCategoryID::gaming ? gaming() : streaming();
}

std::string streamingJSON() {
  return jsonText(streaming(), JsonWriter::Style::pretty);
}

Decoded<DeckTemplate> loadStreaming(std::string_view json) {
  return decodeJson<DeckTemplate>(json);
}

}  // namespace DeckTemplates
}  // namespace glintboard
