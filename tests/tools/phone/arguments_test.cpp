// SPDX-License-Identifier: MIT
#include "tools/phone/arguments.h"

#include <gtest/gtest.h>

#include "protocol/glintboard_service.h"
#include "tools/phone/failure.h"

namespace glintboard::phone {
namespace {

TEST(PhoneArguments, AcceptsOptionsAnywhereInBothForms) {
  const auto arguments = parseArguments(
      {"--timeout=0.5", "tap", "--deck", "gaming", "7", "--json", "--host", "[fe80::1%eth0]:99"});
  EXPECT_EQ(arguments.command, Command::tap);
  EXPECT_EQ(arguments.slot, 7);
  EXPECT_EQ(arguments.deck, DeckCategoryID::gaming);
  EXPECT_EQ(arguments.timeout, std::chrono::milliseconds(500));
  EXPECT_EQ(arguments.host, (AgentAddress{"fe80::1%eth0", 99}));
  EXPECT_TRUE(arguments.json);
}

TEST(PhoneArguments, ParsesEveryFormOfAddress) {
  const std::pair<const char*, std::optional<AgentAddress>> cases[] = {
      {"studio.local", AgentAddress{"studio.local", GlintboardService::defaultPort}},
      {"10.0.0.2:1", AgentAddress{"10.0.0.2", 1}},
      {"::1", AgentAddress{"::1", GlintboardService::defaultPort}},
      {"[::1]", AgentAddress{"::1", GlintboardService::defaultPort}},
      {"[::1]:65535", AgentAddress{"::1", 65535}},
      {"", std::nullopt},
      {":80", std::nullopt},
      {"host:", std::nullopt},
      {"host:0", std::nullopt},
      {"host:65536", std::nullopt},
      {"host:8o", std::nullopt},
      {"[::1", std::nullopt},
      {"[::1]80", std::nullopt},
  };
  for (const auto& [text, address] : cases) {
    EXPECT_EQ(parseAddress(text), address) << text;
  }
}

TEST(PhoneArguments, RefusesInvalidArguments) {
  const std::vector<std::string> cases[] = {
      {},
      {"dance"},
      {"decks", "extra"},
      {"pair"},
      {"pair", "12345"},
      {"pair", "12345a"},
      {"pair", "123456", "--name", ""},
      {"pair", "123456", "--name", "\xFF"},
      {"tap", "one"},
      {"tap", "1", "--deck", "Gaming"},
      {"tap", "1", "--count", "2"},
      {"ping", "--count", "0"},
      {"decks", "--timeout", "0"},
      {"decks", "--timeout", "nan"},
      {"decks", "--timeout", "1e9"},
      {"decks", "--timeout"},
      {"decks", "--colour", "red"},
      {"doctor", "--host", "studio.local"},
      {"raw", "ping"},
  };
  for (const auto& words : cases) {
    try {
      parseArguments(words);
      FAIL() << "accepted " << testing::PrintToString(words);
    } catch (const PhoneFailure& failure) {
      EXPECT_EQ(failure.exitCode, ExitCode::usage);
    }
  }
}

}  // namespace
}  // namespace glintboard::phone
