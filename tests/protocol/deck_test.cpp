#include <gtest/gtest.h>

#include "protocol/deck_template_filter.h"
#include "protocol/deck_templates.h"
#include "protocol/json_reader.h"
#include "protocol/json_writer.h"
#include "protocol/mac_icon_sync_policy.h"

namespace glintboard {
namespace {

std::vector<std::int64_t> slots(const std::vector<DeckTile>& tiles) {
  std::vector<std::int64_t> result;
  for (const auto& tile : tiles) {
    result.push_back(tile.slot);
  }
  return result;
}

TEST(DeckTile, ReadingDerivesKindAndIdentityThatAreMissing) {
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

TEST(DeckTile, AnActionIsWrittenWithAnEmptyBundleIdAndARealMinus) {
  EXPECT_EQ(jsonText(DeckTile::action(3, BuiltinAction::volumeDown)),
            "{\"actionId\":\"system.volume.down\",\"bundleId\":\"\",\"iconSymbol\":"
            "\"speaker.wave.1.fill\",\"id\":\"system.volume.down\",\"kind\":\"action\",\"label\":"
            "\"Vol \xe2\x88\x92\",\"slot\":3}");
}

TEST(DeckTemplate, MakingSortsBySlotAndReadingDoesNot) {
  const std::vector<DeckTile> tiles = {DeckTile::app(5, "a", "a"), DeckTile::app(1, "b", "b"),
                                       DeckTile::app(1, "c", "c")};
  DeckTemplate deck("d", "D", tiles);
  EXPECT_EQ(deck.tiles, (std::vector{tiles[1], tiles[2], tiles[0]}));
  deck.tiles = tiles;
  EXPECT_EQ(decodeJson<DeckTemplate>(jsonText(deck))->tiles, tiles);
}

TEST(DeckTemplates, TheBuiltInDecksAreNumberedAndReadBackFromTheirJson) {
  for (const auto category : DeckTemplates::categoryOrder) {
    const auto& deck = DeckTemplates::bundledTemplate(category);
    EXPECT_EQ(deck.id, rawValue(category));
    EXPECT_EQ(slots(deck.tiles),
              (std::vector<std::int64_t>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}));
  }
  const auto json = DeckTemplates::streamingJSON();
  EXPECT_NE(json.find("\n  \"tiles\": [\n    {\n      \"alternateBundleIds\": ["),
            std::string::npos);
  EXPECT_EQ(*DeckTemplates::loadStreaming(json), DeckTemplates::streaming());
}

TEST(DeckTemplateFilter, ShowsWhatIsInstalledUnderTheIdentifierThatIs) {
  const auto payload = DeckTemplateFilter::snapshot(DeckTemplates::streaming(),
                                                    {"com.discord.Discord", "com.apple.Safari"},
                                                    {"com.apple.Safari", "com.spotify.client"});
  ASSERT_EQ(payload.tiles.size(), 2u);
  EXPECT_EQ(payload.tiles[0].bundleId, "com.discord.Discord");
  EXPECT_EQ(payload.tiles[0].id, "com.discord.Discord");
  EXPECT_EQ(slots(payload.tiles), (std::vector<std::int64_t>{2, 4}));
  EXPECT_EQ(payload.runningBundleIds, std::vector<std::string>{"com.apple.Safari"});

  const DeckTemplate mixed("d", "D",
                           {DeckTile::action(1, BuiltinAction::volumeUp),
                            DeckTile::shortcut(2, "S", "s", "x"), DeckTile::app(3, "A", "a")});
  EXPECT_EQ(slots(DeckTemplateFilter::visibleTiles(mixed, {})), (std::vector<std::int64_t>{1, 2}));
}

TEST(MacIconSyncPolicy, AsksForWhatIsMissingOrOutdatedOnce) {
  const std::string upper = "0F8FAD5B-D9CB-469F-A165-70867728950E";
  const std::string lower = MacIconSyncPolicy::normalized(upper);
  EXPECT_EQ(lower, "0f8fad5b-d9cb-469f-a165-70867728950e");
  EXPECT_EQ(MacIconSyncPolicy::normalized("Com.Example"), "Com.Example");

  const std::vector<DeckTile> tiles = {
      DeckTile::app(1, "new", "new"),         DeckTile::app(2, "new again", "new"),
      DeckTile::app(3, "current", "current"), DeckTile::app(4, "outdated", "outdated"),
      DeckTile::app(5, "unknown", "unknown"), DeckTile::app(6, "empty", ""),
      DeckTile::shortcut(7, "s", upper, "x"), DeckTile::action(8, BuiltinAction::volumeUp)};
  const std::map<std::string, std::string> revisions = {
      {"current", "1"}, {"outdated", "2"}, {upper, "1"}};
  const auto keys = MacIconSyncPolicy::keysNeedingFetch(
      tiles, revisions, [](const std::string& key) { return key != "new"; },
      [&](const std::string& key, const std::string& revision) {
        return revision == "2" || key == upper;
      });
  EXPECT_EQ(keys, (std::vector<std::string>{upper, "new", "outdated"}));
}

}  // namespace
}  // namespace glintboard
