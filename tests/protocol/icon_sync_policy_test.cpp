#include <gtest/gtest.h>

#include "protocol/mac_icon_sync_policy.h"

namespace glintboard {
namespace {

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
