// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <set>
#include <sstream>

#include "protocol/sha256.h"
#include "tests/support/temporary_folder.h"
#include "tools/phone/icon_cache.h"
#include "tools/phone/output.h"
#include "tools/phone/phone_state.h"

namespace glintboard::phone {
namespace {

TEST(PhoneStateFile, KeepsThePairingInAPrivateFile) {
  const test::TemporaryFolder folder;
  const PhoneStateFile file(folder / "not/there/yet");
  PhoneState state = file.load();
  EXPECT_FALSE(state.token);
  state.token = "secret";
  file.save(state);
  EXPECT_EQ(PhoneStateFile(folder / "not/there/yet").load(), state);
  EXPECT_EQ(std::filesystem::status(file.path()).permissions(), std::filesystem::perms{0600});
  EXPECT_EQ(std::filesystem::status(file.path().parent_path()).permissions(),
            std::filesystem::perms{0700});
}

TEST(IconCache, RequestsMissingOutdatedAndDamagedIcons) {
  const test::TemporaryFolder folder;
  const IconCache cache(folder / "icons");
  const std::string shortcut = "0F8FAD5B-D9CB-469F-A165-70867728950E";
  const std::vector<DeckTile> tiles = {
      DeckTile::app(1, "Current", "current"),       DeckTile::app(2, "Outdated", "outdated"),
      DeckTile::app(3, "Unversioned", "plain"),     DeckTile::app(4, "Missing", "missing"),
      DeckTile::app(5, "Damaged", "damaged"),       DeckTile::shortcut(6, "Tea", shortcut, "star"),
      DeckTile::action(7, BuiltinAction::volumeUp),
  };
  for (const auto* key : {"current", "outdated", "plain", "damaged"}) {
    cache.store(key, key);
  }
  cache.store(shortcut, "tea");
  folder.write(std::filesystem::relative(cache.file("damaged"), folder.path()), "half");
  EXPECT_EQ(cache.outdated(tiles, {{"current", sha256Hex("current")},
                                   {"outdated", sha256Hex("newer")},
                                   {"missing", sha256Hex("missing")},
                                   {"damaged", sha256Hex("damaged")},
                                   {shortcut, sha256Hex("tea")}}),
            (std::vector<std::string>{"damaged", "missing", "outdated"}));
}

TEST(IconCache, MapsKeysToDistinctFilesInTheFolder) {
  const IconCache cache("icons");
  std::set<std::string> files;
  std::vector<std::string> keys = {"a/b", "a%2Fb", "../a", "..", ".a", "a", "", "\n"};
  keys.emplace_back(300, 'x');
  keys.emplace_back(301, 'x');
  for (const auto& key : keys) {
    const auto file = cache.file(key);
    EXPECT_EQ(file.parent_path(), "icons") << key;
    EXPECT_NE(file.filename().string()[0], '.') << key;
    EXPECT_LT(file.filename().string().size(), 255U);
    files.insert(file);
  }
  EXPECT_EQ(files.size(), keys.size());
}

TEST(PhoneOutput, StripsTerminalControlSequences) {
  const std::string hostile = "Vol −\x1b[2J\n\x7f\u009b31m\u202e evil\u2066 naïve";
  EXPECT_EQ(printable(hostile), "Vol −[2J31m evil naïve");
  EXPECT_EQ(printable("\x9b stray"), " stray");

  std::ostringstream json;
  std::ostringstream none;
  Output(json, none, true).record({{"text", "a\x1b\x7f\u009b\u00a0"}});
  EXPECT_EQ(json.str(), "{\"text\":\"a\\u001b\\u007f\\u009b\u00a0\"}\n");
}

TEST(PhoneOutput, AlignsTablesByCharacters) {
  std::ostringstream text;
  std::ostringstream none;
  Output(text, none, false)
      .table({{"Key", "Kind"},
              {"Vol −", "action"},
              {"Lou\x1b"
               "der",
               "app"}});
  EXPECT_EQ(text.str(), "  Key     Kind\n  Vol −   action\n  Louder  app\n");
}

}  // namespace
}  // namespace glintboard::phone
