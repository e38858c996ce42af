// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "protocol/json_reader.h"
#include "protocol/json_writer.h"
#include "protocol/paired_device.h"
#include "protocol/pairing_engine.h"
#include "protocol/pairing_qr_payload.h"
#include "protocol/pairing_secrets.h"

namespace glintboard {
namespace {

TEST(PairingSecrets, AreWellFormedAndDiffer) {
  const std::pair<std::int64_t, const char*> numbers[] = {
      {0, "000000"}, {7, "000007"}, {123456, "123456"}, {1234567, "1234567"}, {-7, "-00007"}};
  for (const auto& [number, text] : numbers) {
    EXPECT_EQ(PINGenerator::format(number), text);
  }
  const std::string pin = PINGenerator::generate();
  EXPECT_EQ(pin.size(), 6u);
  EXPECT_EQ(pin.find_first_not_of("0123456789"), std::string::npos);
  const std::string code = PairingCodeGenerator::generate();
  EXPECT_EQ(code.size(), 43u);
  EXPECT_EQ(code.find_first_of("+/="), std::string::npos);
  EXPECT_NE(code, PairingCodeGenerator::generate());
}

TEST(PairingEngine, LocksOutAfterFiveFailures) {
  using namespace PINCheckResult;
  const struct {
    const char* pin;
    PairingEngine::Result result;
    int failed;
    int remaining;
    bool isLockedOut;
  } checks[] = {{"000000", InvalidPIN{4}, 1, 4, false},  {"12345", InvalidPIN{3}, 2, 3, false},
                {"1234567", InvalidPIN{2}, 3, 2, false}, {"12345a", InvalidPIN{1}, 4, 1, false},
                {"123456", Accepted{}, 0, 5, false},     {"", InvalidPIN{4}, 1, 4, false},
                {"123450", InvalidPIN{3}, 2, 3, false},  {"123450", InvalidPIN{2}, 3, 2, false},
                {"123450", InvalidPIN{1}, 4, 1, false},  {"123450", Lockout{}, 5, 0, true},
                {"123456", Lockout{}, 5, 0, true}};
  PairingEngine engine;
  for (const auto& [pin, result, failed, remaining, isLockedOut] : checks) {
    EXPECT_EQ(engine.check(pin, "123456"), result) << pin;
    EXPECT_EQ(engine.failedAttempts(), failed) << pin;
    EXPECT_EQ(engine.remainingAttempts(), remaining) << pin;
    EXPECT_EQ(engine.isLockedOut(), isLockedOut) << pin;
  }
  EXPECT_EQ(PairingEngine(7).remainingAttempts(), 0);
  engine.resetAttempts();
  EXPECT_EQ(engine, PairingEngine());
}

TEST(PairingSecret, MatchesOnlyTheSameBytes) {
  EXPECT_TRUE(PairingSecret::matches("abc", "abc"));
  for (const char* other : {"", "ab", "abd", "abcd", "abc\xcc\x81"}) {
    EXPECT_FALSE(PairingSecret::matches(other, "abc")) << other;
  }
}

TEST(PairingQRPayload, MakesTheAddressAndReadsItBack) {
  EXPECT_EQ((PairingQRPayload{"Studio Mac", "C"}.encodedURL()),
            "glintboard://pair?v=1&name=Studio%20Mac&code=C");
  for (const char* name : {"Studio Mac", "a&b=c+d%20?#/", "Büro \u2014 日本"}) {
    const PairingQRPayload payload{name, PairingCodeGenerator::generate()};
    EXPECT_EQ(PairingQRPayload::parse(*payload.encodedURL()), payload);
  }
  EXPECT_EQ((PairingQRPayload{"\xff", "C"}.encodedURL()), std::nullopt);
}

TEST(PairingQRPayload, ReadsOnlyCompletePairingAddresses) {
  EXPECT_EQ(PairingQRPayload::parse(" glintboard://pair?v=+2&x&name=Studio%20Mac&code=abc\n"),
            (PairingQRPayload{"Studio Mac", "abc", 2}));
  // Empty items, also at the end, are items without a value.
  EXPECT_EQ(PairingQRPayload::parse("glintboard://pair?&v=1&name=a=b&code=%26&"),
            (PairingQRPayload{"a=b", "&", 1}));
  for (const char* bad :
       {"glintboard://pair?", "glintboard://pair?#v=1", "GLINTBOARD://pair?v=1&name=a&code=b",
        "glintboard://Pair?v=1&name=a&code=b", "glintboard://pair", "glintboard://pair?v=1&code=b",
        "glintboard://pair?v=1&name=&code=b", "glintboard://pair?v=1&name=a&code=",
        "glintboard://pair?v=1&name=a&code", "glintboard://pair?v=one&name=a&code=b",
        "glintboard://pair?v=&name=a&code=b", "glintboard://pair?v=+-1&name=a&code=b",
        "glintboard://pair?v=99999999999999999999&name=a&code=b", "glintboard://pair?name=a&code=b",
        "glintboard://pair?v=1&v=1&name=a&code=b", "glintboard://pair?v=1&name=%ff&code=b",
        "//pair?v=1&name=a&code=b", "pair", ""}) {
    EXPECT_EQ(PairingQRPayload::parse(bad), std::nullopt) << bad;
  }
}

TEST(PairedDevice, RoundTripsAllMembers) {
  const PairedDevice device{
      *parseUuid("0f8fad5b-d9cb-469f-a165-70867728950e"), "iPhone", {"T"}, {800000000.25}};
  const std::string text = jsonText(device);
  EXPECT_EQ(text, R"({"id":"0F8FAD5B-D9CB-469F-A165-70867728950E","name":"iPhone",)"
                  R"("pairedAt":800000000.25,"token":{"value":"T"}})");
  EXPECT_EQ(*decodeJson<PairedDevice>(text), device);
  EXPECT_FALSE(decodeJson<PairedDevice>(R"({"id":"0F8FAD5B-D9CB-469F-A165-70867728950E",)"
                                        R"("name":"iPhone","token":{"value":"T"}})"));
}

}  // namespace
}  // namespace glintboard
