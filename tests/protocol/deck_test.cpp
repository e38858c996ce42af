// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "protocol/deck_templates.h"
#include "protocol/json_reader.h"
#include "protocol/json_writer.h"
#include "protocol/mac_icon_sync_policy.h"

namespace glintboard {
namespace {

TEST(DeckTile, ReadingDerivesMissingKindAndIdentity) {
  const std::tuple<const char*, DeckTileKind, const char*> cases[] = {
      {R"({"slot":1,"label":"A","bundleId":"a.b"})", DeckTileKind::app, "a.b"},
      {R"({"slot":1,"label":"A","bundleId":"","actionId":"system.volume.up"})",
       DeckTileKind::action, "system.volume.up"},
      {R"({"slot":1,"label":"A","bundleId":"","shortcutIdentifier":"S"})", DeckTileKind::shortcut,
       "S"},
      {R"({"slot":1,"label":"A","bundleId":"b","kind":"shortcut"})", DeckTileKind::shortcut, "b"},
      {R"({"slot":1,"label":"A","bundleId":"b","id":"mine","kind":null})", DeckTileKind::app,
       "mine"},
  };
  for (const auto& [text, kind, id] : cases) {
    const auto tile = decodeJson<DeckTile>(text);
    ASSERT_TRUE(tile) << text;
    EXPECT_EQ(tile->kind, kind) << text;
    EXPECT_EQ(tile->id, id) << text;
    EXPECT_EQ(tile->withSlot(2).id, tile->derivedId());
  }
  for (const char* bad : {R"({"slot":1,"label":"A"})", R"({"slot":1.5,"label":"A","bundleId":"a"})",
                          R"({"slot":1,"label":"A","bundleId":"a","kind":"folder"})"}) {
    EXPECT_FALSE(decodeJson<DeckTile>(bad)) << bad;
  }
}

TEST(DeckTile, ActionsAreWrittenWithAnEmptyBundleId) {
  EXPECT_EQ(jsonText(DeckTile::action(3, BuiltinAction::volumeDown)),
            "{\"actionId\":\"system.volume.down\",\"bundleId\":\"\",\"iconSymbol\":"
            "\"speaker.wave.1.fill\",\"id\":\"system.volume.down\",\"kind\":\"action\",\"label\":"
            "\"Vol \xe2\x88\x92\",\"slot\":3}");
}

TEST(DeckTemplate, ConstructionSortsBySlotAndReadingDoesNot) {
  const std::vector<DeckTile> tiles = {DeckTile::app(5, "a", "a"), DeckTile::app(1, "b", "b"),
                                       DeckTile::app(1, "c", "c")};
  DeckTemplate deck("d", "D", tiles);
  EXPECT_EQ(deck.tiles, (std::vector{tiles[1], tiles[2], tiles[0]}));
  deck.tiles = tiles;
  EXPECT_EQ(decodeJson<DeckTemplate>(jsonText(deck))->tiles, tiles);
}

TEST(DeckTemplates, BuiltInDecksHaveTheseKeysAndRoundTrip) {
  const std::vector<DeckTile> decks[] = {
      {DeckTile::app(1, "OBS", "com.obsproject.obs-studio", "obs", {{"com.obsproject.OBS"}}),
       DeckTile::app(2, "Discord", "com.hnc.Discord", "discord", {{"com.discord.Discord"}}),
       DeckTile::app(3, "Chrome", "com.google.Chrome", "chrome"),
       DeckTile::app(4, "Safari", "com.apple.Safari", "safari"),
       DeckTile::app(5, "Spotify", "com.spotify.client", "spotify"),
       DeckTile::app(6, "Twitch", "com.twitch.desktop", "twitch"),
       DeckTile::app(7, "Streamlabs", "com.streamlabs.desktop", "streamlabs"),
       DeckTile::app(8, "Messages", "com.apple.MobileSMS", "messages"),
       DeckTile::app(9, "Music", "com.apple.Music", "music"),
       DeckTile::app(10, "Terminal", "com.apple.Terminal", "terminal"),
       DeckTile::app(11, "Finder", "com.apple.finder", "finder"),
       DeckTile::app(12, "Settings", "com.apple.systempreferences", "settings",
                     {{"com.apple.SystemPreferences"}})},
      {DeckTile::app(1, "Steam", "com.valvesoftware.steam", "steam"),
       DeckTile::app(2, "Discord", "com.hnc.Discord", "discord", {{"com.discord.Discord"}}),
       DeckTile::app(3, "GeForce NOW", "com.nvidia.geforcenow", "geforcenow"),
       DeckTile::app(4, "Epic Games", "com.epicgames.EpicGamesLauncher", "epic"),
       DeckTile::app(5, "Safari", "com.apple.Safari", "safari"),
       DeckTile::app(6, "Messages", "com.apple.MobileSMS", "messages"),
       DeckTile::app(7, "Spotify", "com.spotify.client", "spotify"),
       DeckTile::app(8, "OBS", "com.obsproject.obs-studio", "obs", {{"com.obsproject.OBS"}}),
       DeckTile::app(9, "Terminal", "com.apple.Terminal", "terminal"),
       DeckTile::app(10, "Finder", "com.apple.finder", "finder"),
       DeckTile::app(11, "Music", "com.apple.Music", "music"),
       DeckTile::app(12, "Settings", "com.apple.systempreferences", "settings",
                     {{"com.apple.SystemPreferences"}})}};
  EXPECT_EQ(DeckTemplates::bundledTemplate(DeckCategoryID::streaming),
            DeckTemplate("streaming", "Streaming", decks[0]));
  EXPECT_EQ(DeckTemplates::bundledTemplate(DeckCategoryID::gaming),
            DeckTemplate("gaming", "Gaming", decks[1]));
  const auto json = DeckTemplates::streamingJSON();
  EXPECT_NE(json.find("\n  \"tiles\": [\n    {\n      \"alternateBundleIds\": ["),
            std::string::npos);
  EXPECT_EQ(*DeckTemplates::loadStreaming(json), DeckTemplates::streaming());
}

TEST(MacIconSyncPolicy, RequestsEachIconOnce) {
  EXPECT_EQ(MacIconSyncPolicy::normalized("0F8FAD5B-D9CB-469F-A165-70867728950E"),
            "0f8fad5b-d9cb-469f-a165-70867728950e");
  EXPECT_EQ(MacIconSyncPolicy::normalized("Com.Example"), "Com.Example");
  const auto nothing = [](auto&&...) { return false; };
  EXPECT_EQ(MacIconSyncPolicy::keysNeedingFetch(
                {DeckTile::app(1, "new", "new"), DeckTile::app(2, "new again", "new"),
                 DeckTile::app(3, "empty", "")},
                {}, nothing, nothing),
            std::vector<std::string>{"new"});
}

}  // namespace
}  // namespace glintboard
