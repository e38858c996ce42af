// Whole runs of the program against an agent that follows a script: what the real one does not do.
#include "tools/phone/commands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/json.hpp>
#include <fstream>
#include <sstream>

#include "tests/support/child_process.h"
#include "tests/support/ports.h"
#include "tests/support/temporary_folder.h"

namespace glintboard::phone {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

struct Outcome {
  int exitCode = 0;
  std::string out;
  std::string error;

  // The objects of a run with --json.
  std::vector<boost::json::object> records() const {
    std::vector<boost::json::object> objects;
    std::istringstream lines(out);
    for (std::string line; std::getline(lines, line);) {
      objects.push_back(boost::json::parse(line).as_object());
    }
    return objects;
  }
  std::string code() const { return records().back().at("code").as_string().c_str(); }
};

class PhoneCommands : public testing::Test {
 protected:
  PhoneCommands() {
    EXPECT_TRUE(test::eventually([this] { return std::ifstream(folder / "port") >> port; }));
  }
  Outcome run(std::vector<std::string> words) const {
    words.insert(words.end(), {"--host", "127.0.0.1:" + std::to_string(port), "--state",
                               (folder / "state").string()});
    std::ostringstream out;
    std::ostringstream error;
    const int exitCode = runPhone(words, out, error, {});
    return {exitCode, out.str(), error.str()};
  }
  void pair() const { ASSERT_EQ(run({"pair", "246810"}).exitCode, 0); }

  test::TemporaryFolder folder;
  test::ChildProcess agent{{"/usr/bin/python3", SCRIPTED_AGENT, (folder / "port").string()}};
  std::uint16_t port = 0;
};

TEST_F(PhoneCommands, PairingIsNeededKeptAndForgotten) {
  EXPECT_THAT(run({"decks"}).error, HasSubstr("glintboard-phone pair PIN"));
  EXPECT_EQ(run({"pair", "glintboard://pair?v=1&name=Studio%20Mac"}).exitCode, 2);
  EXPECT_EQ(run({"pair", "glintboard://pair?v=1&name=Studio%20Mac&code=a%2Bcode"}).exitCode, 0);
  EXPECT_EQ(run({"decks"}).exitCode, 0);
  EXPECT_EQ(run({"forget"}).exitCode, 0);
  EXPECT_EQ(run({"decks", "--json"}).code(), "not_paired");
}

TEST_F(PhoneCommands, ATokenThatIsNoLongerGoodIsToldAtOnceByEveryCommand) {
  folder.write("state/phone.json",
               R"({"deviceId":"0F8FAD5B-D9CB-469F-A165-70867728950E","token":"old"})");
  const std::string icons = (folder / "icons").string();
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"decks"}, {"icons", icons}, {"tap", "1"}, {"ping"}, {"watch"}}) {
    const Outcome refused = run(words);
    EXPECT_EQ(refused.exitCode, 1) << words[0];
    EXPECT_THAT(refused.error, HasSubstr("does not know this phone any more")) << words[0];
  }
}

TEST_F(PhoneCommands, DecksShowEveryKeyAndNoControlCharacter) {
  pair();
  const std::string text = run({"decks"}).out;
  EXPECT_THAT(text, HasSubstr("Streaming (streaming)\n  Slot  Label"));
  EXPECT_THAT(text, testing::ContainsRegex("1 +Good +app +org.example.Good +yes\n"));
  EXPECT_THAT(text, testing::ContainsRegex("6 +Mute +action +system.volume.mute\n"));
  EXPECT_THAT(text, Not(HasSubstr("\x1b")));
  EXPECT_EQ(run({"decks", "--json"}).records().at(0).at("decks").as_array().size(), 2U);
}

TEST_F(PhoneCommands, AKeyThatIsNotThereAndAnAgentThatIsSilentAreFailures) {
  pair();
  EXPECT_EQ(run({"tap", "1", "--deck", "gaming"}).exitCode, 0);
  const Outcome absent = run({"tap", "99", "--json"});
  EXPECT_EQ(absent.exitCode, 2);
  EXPECT_EQ(absent.code(), "no_key");
  EXPECT_THAT(absent.error, IsEmpty());
  const Outcome silent = run({"tap", "3", "--timeout", "0.3", "--json"});
  EXPECT_EQ(silent.exitCode, 4);
  EXPECT_EQ(silent.code(), "timeout");
}

TEST_F(PhoneCommands, IconsAreFetchedInBatchesAndOnlyWhenNeeded) {
  pair();
  const std::vector<std::string> words = {"icons", (folder / "icons").string(), "--json"};
  const auto states = [&] {
    std::map<std::string, int> count;
    const auto record = run(words).records().back();
    for (const auto& icon : record.at("icons").as_array()) {
      ++count[icon.at("state").as_string().c_str()];
    }
    EXPECT_EQ(record.at("missing").as_array(), boost::json::array{"org.example.NoIcon"});
    return count;
  };
  EXPECT_EQ(states(), (std::map<std::string, int>{{"fetched", 17}}));
  EXPECT_EQ(states(), (std::map<std::string, int>{{"kept", 17}}));
  folder.write("icons/org.example.Good.png", "damaged");
  EXPECT_EQ(states(), (std::map<std::string, int>{{"fetched", 1}, {"kept", 16}}));
}

TEST_F(PhoneCommands, AnIconThatIsNotWhatItsRevisionSaysIsRefused) {
  pair();
  run({"raw", "test.forge", "{}"});
  const Outcome icons = run({"icons", (folder / "icons").string(), "--json"});
  EXPECT_EQ(icons.exitCode, 1);
  EXPECT_EQ(icons.code(), "bad_icon");
  EXPECT_FALSE(std::filesystem::exists(folder / "icons/org.example.Forged.png"));
}

TEST_F(PhoneCommands, PingMeasuresTheTimeItselfAndWatchShowsPushesUntilItsTimeIsUp) {
  pair();
  const auto pongs = run({"ping", "--count", "3", "--json"}).records();
  ASSERT_EQ(pongs.size(), 3U);
  EXPECT_GT(pongs[0].at("seconds").as_double(), 0);
  EXPECT_EQ(pongs[0].at("agentRtt"), 0.5);
  const auto watched = run({"watch", "--for", "0.5", "--json"}).records();
  ASSERT_EQ(watched.size(), 2U);
  EXPECT_EQ(watched[1].at("decks").as_array().size(), 2U);
}

TEST_F(PhoneCommands, NoAgentAndAMuteOneAreToldApart) {
  port = test::freePort();
  const Outcome refused = run({"pair", "246810", "--json"});
  EXPECT_EQ(refused.exitCode, 3);
  EXPECT_EQ(refused.code(), "unreachable");
  // The connection opens, the upgrade hangs.
  const auto held = test::holdPort(0);
  port = test::portOf(held);
  EXPECT_EQ(run({"pair", "246810", "--timeout", "0.3"}).exitCode, 4);
}

}  // namespace
}  // namespace glintboard::phone
