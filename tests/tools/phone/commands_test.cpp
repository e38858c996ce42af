// Whole runs of the program against an agent that follows a script.
#include "tools/phone/commands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <boost/json.hpp>
#include <fstream>
#include <sstream>

#include "tests/support/temporary_folder.h"
#include "tests/tools/phone/scripted_agent.h"

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
  Outcome run(std::vector<std::string> words, const std::string& host = {}) const {
    words.insert(words.end(), {"--host", host.empty() ? agent.host() : host, "--state",
                               (folder / "state").string()});
    std::ostringstream out;
    std::ostringstream error;
    const int exitCode = runPhone(words, out, error, nullptr);
    return {exitCode, out.str(), error.str()};
  }
  void pair() const { ASSERT_EQ(run({"pair", "246810"}).exitCode, 0); }

  test::TemporaryFolder folder;
  test::ScriptedAgent agent;
};

TEST_F(PhoneCommands, PairingIsNeededKeptAndForgotten) {
  const Outcome before = run({"decks"});
  EXPECT_EQ(before.exitCode, 1);
  EXPECT_THAT(before.error, HasSubstr("glintboard-phone pair PIN"));

  const Outcome wrong = run({"pair", "000000", "--json"});
  EXPECT_EQ(wrong.exitCode, 1);
  EXPECT_EQ(wrong.code(), "invalid_pin");

  EXPECT_EQ(run({"pair", "glintboard://pair?v=1&name=Studio%20Mac&code=a%2Bcode"}).exitCode, 0);
  EXPECT_EQ(run({"decks"}).exitCode, 0);
  EXPECT_EQ(run({"pair", "glintboard://pair?v=1&name=Studio%20Mac"}).exitCode, 2);
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

TEST_F(PhoneCommands, TappingReportsWhatBecameOfIt) {
  pair();
  const auto launched = run({"tap", "1", "--json"}).records();
  ASSERT_EQ(launched.size(), 1U);
  EXPECT_EQ(launched[0].at("type"), "app.ok");
  EXPECT_EQ(launched[0].at("identifier"), "org.example.Good");
  EXPECT_EQ(run({"tap", "6", "--json"}).records().at(0).at("type"), "action.ok");
  EXPECT_EQ(run({"tap", "7", "--json"}).records().at(0).at("type"), "shortcut.ok");
  EXPECT_EQ(run({"focus", "1", "--deck", "gaming"}).exitCode, 0);

  const struct {
    std::vector<std::string> words;
    int exitCode;
    std::string code;
  } failures[] = {
      {{"tap", "2"}, 1, "not_found"},
      {{"focus", "2"}, 1, "not_found"},
      {{"tap", "99"}, 2, "no_key"},
      {{"focus", "6"}, 2, "not_an_app"},
      {{"tap", "3", "--timeout", "0.3"}, 4, "timeout"},
  };
  for (auto [words, exitCode, code] : failures) {
    words.emplace_back("--json");
    const Outcome failed = run(words);
    EXPECT_EQ(failed.exitCode, exitCode) << code;
    EXPECT_EQ(failed.code(), code);
    EXPECT_THAT(failed.error, IsEmpty());
  }
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

TEST_F(PhoneCommands, PingMeasuresTheTimeItself) {
  pair();
  const auto pongs = run({"ping", "--count", "3", "--json"}).records();
  ASSERT_EQ(pongs.size(), 3U);
  EXPECT_GT(pongs[0].at("seconds").as_double(), 0);
  EXPECT_LT(pongs[0].at("seconds").as_double(), 0.5);
  EXPECT_EQ(pongs[0].at("agentRtt"), 0.5);
  EXPECT_EQ(pongs[0].at("running"), boost::json::array{"org.example.Good"});
}

TEST_F(PhoneCommands, WatchShowsPushesUntilItsTimeIsUp) {
  pair();
  const auto records = run({"watch", "--for", "0.5", "--json"}).records();
  ASSERT_EQ(records.size(), 2U);
  EXPECT_EQ(records[0].at("watching"), true);
  EXPECT_EQ(records[1].at("decks").as_array().size(), 2U);
}

TEST_F(PhoneCommands, RawNeedsNoPairingAndEndsWithoutAReply) {
  const auto silent = run({"raw", "ping", R"({"ts":"2026-11-16T16:25:42Z"})", "--json"}).records();
  EXPECT_EQ(silent, (std::vector<boost::json::object>{{{"ok", true}, {"replies", 0}}}));
  const auto answered = run({"raw", "deck.sync", "{}", "--json"}).records();
  ASSERT_EQ(answered.size(), 2U);
  EXPECT_EQ(answered[0].at("message").at("payload").at("code"), "unauthorized");
}

TEST_F(PhoneCommands, NoAgentAndAMuteOneAreToldApart) {
  // A socket that is bound but accepts nothing by itself: the connection opens, the upgrade hangs.
  const FileDescriptor socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
  ASSERT_TRUE(socket);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t length = sizeof address;
  auto* generic = reinterpret_cast<sockaddr*>(&address);
  ASSERT_EQ(::bind(socket.get(), generic, length), 0);
  ASSERT_EQ(::getsockname(socket.get(), generic, &length), 0);
  const std::string host = "127.0.0.1:" + std::to_string(ntohs(address.sin_port));

  const Outcome refused = run({"pair", "246810", "--json"}, host);
  EXPECT_EQ(refused.exitCode, 3);
  EXPECT_EQ(refused.code(), "unreachable");
  ASSERT_EQ(::listen(socket.get(), 1), 0);
  EXPECT_EQ(run({"pair", "246810", "--timeout", "0.3"}, host).exitCode, 4);
}

}  // namespace
}  // namespace glintboard::phone
