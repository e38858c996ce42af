// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <boost/json.hpp>
#include <iterator>
#include <sstream>

#include "protocol/base64.h"
#include "protocol/json_reader.h"
#include "protocol/json_writer.h"
#include "protocol/payloads.h"
#include "protocol/utf8.h"

namespace glintboard {
namespace {

TEST(Json, WritesSortedCompactObjects) {
  AppErrorPayload payload{"a\"b\\c\n\x01/é", AppErrorCode::notFound, std::nullopt};
  EXPECT_EQ(jsonText(payload), "{\"bundleId\":\"a\\\"b\\\\c\\n\\u0001/é\",\"code\":\"not_found\"}");
  EXPECT_EQ(jsonText(DeckSnapshotPayload{}),
            R"({"deckId":"","iconRevisions":{},"name":"","runningBundleIds":[],"tiles":[]})");
}

TEST(Json, NumbersRoundTrip) {
  for (const double number : {0.0, -0.25, 1.0 / 3, 1e-12, 1.7976931348623157e308, -86400.5}) {
    std::string text;
    JsonWriter(text).write(number);
    const auto back = decodeJson<double>(text);
    ASSERT_TRUE(back) << text;
    EXPECT_EQ(*back, number);
  }
  for (const char* beyond : {"1e400", "-1e999999999999"}) {
    EXPECT_FALSE(decodeJson<double>(beyond)) << beyond;
  }
  EXPECT_EQ(decodeJson<double>("-0e+315").value(), 0);
}

TEST(Json, AcceptsVariationsAndRefusesMismatches) {
  const std::pair<const char*, bool> cases[] = {
      {R"({"bundleId":"a","code":"not_found"})", true},
      {R"({"bundleId":"a","code":"not_found","message":null,"unknown":[1,{}]})", true},
      {R"({"bundleId":"x","bundleId":"a","code":"not_found"})", true},
      {R"({"bundleId":[{"x":1}],"bundleId":"a","code":"not_found"})", true},
      {R"({"bundleId":"a","bundleId":1,"code":"not_found"})", false},
      {R"({"bundleId":"a","code":"Not_Found"})", false},
      {R"({"bundleId":"a","code":1})", false},
      {R"({"bundleId":1,"code":"not_found"})", false},
      {R"({"bundleId":null,"code":"not_found"})", false},
      {R"({"code":"not_found"})", false},
      {R"({"bundleId":"a","code":"not_found","message":7})", false},
      {R"([])", false},
      {"{\"bundleId\":\"\xff\",\"code\":\"not_found\"}", false},
      {R"({"bundleId":"a","code":"not_found"} x)", false},
      {"", false},
  };
  for (const auto& [text, fits] : cases) {
    const auto payload = decodeJson<AppErrorPayload>(text);
    EXPECT_EQ(payload.has_value(), fits) << text;
    if (fits && payload) {
      EXPECT_EQ(*payload, (AppErrorPayload{"a", AppErrorCode::notFound, std::nullopt}));
    }
  }
}

// Compares with Boost.JSON.
TEST(Json, AgreesWithTheLibraryOnTheGrammar) {
  std::vector<std::string> texts = {
      R"({"x":[1,-0,2.5e-3,1E+5,0.1],"y":{"z":[true,false,null]}} )",
      R"("\\\"\/\b\f\n\r\t\u00e9\ud83d\ude00 é and more than eight plain characters")",
      R"(["long enough to be taken by the word", "and one with a \" in it"])",
      " [ ] ",
      "{ }",
      "[1 2]",
      R"({"a":1 "b":2})",
      ""};
  std::istringstream words(
      R"json(01 1. .5 - +1 1e [1,] [,1] {"a":1,} {"a"} {1:2} [1 { "abc tru nulll [}
             "\x" "\u12g4" "\ud83d" "\ude00" "\ud83dx" )json"
      "\"\x01\" \"\xc3\"");
  texts.insert(texts.end(), std::istream_iterator<std::string>(words), {});
  ASSERT_EQ(texts.size(), 32U);
  for (const auto& text : texts) {
    boost::system::error_code error;
    boost::json::parse(text, error);
    const std::string member = R"({"unknown":)" + text + "}";
    EXPECT_EQ(decodeJson<EmptyPayload>(member).has_value(), !error) << text;
  }
  for (const auto& [depth, fits] : {std::pair(31, true), std::pair(32, false)}) {
    const std::string deep = std::string(depth, '[') + std::string(depth, ']');
    EXPECT_EQ(decodeJson<EmptyPayload>(R"({"a":)" + deep + "}").has_value(), fits);
  }
  std::string text;
  EXPECT_TRUE(JsonReader(R"("\u0041\u00e9\u20ac\ud83d\ude00\n")").readAll(text));
  EXPECT_EQ(text, "Aé€😀\n");
}

TEST(Json, ReadingReplacesPreviousContent) {
  std::vector<PongPayload> pongs;
  EXPECT_TRUE(JsonReader(R"([{"ts":"2026-11-16T16:25:42Z","rtt":1.5,"runningBundleIds":["a","b"]},
                             {"ts":"2026-11-16T16:25:42Z"}])")
                  .readAll(pongs));
  EXPECT_TRUE(
      JsonReader(R"([{"ts":"2026-11-16T16:25:43Z","runningBundleIds":["c"]}])").readAll(pongs));
  EXPECT_EQ(pongs, (std::vector{PongPayload{*WireDate::parse("2026-11-16T16:25:43Z"), std::nullopt,
                                            std::vector<std::string>{"c"}}}));
}

TEST(Json, ErrorsNameTheMember) {
  const auto snapshot =
      decodeJson<DecksSnapshotPayload>(R"({"decks":[{"deckId":"a","name":"b","tiles":[{}]}]})");
  ASSERT_FALSE(snapshot);
  EXPECT_EQ(snapshot.error().reason, "decks.tiles.bundleId: missing");
}

TEST(Utf8, AcceptsOnlyWellFormedText) {
  for (const char* good : {"", "abc", "\u00e9\u2212\U0001F600", "\xf4\x8f\xbf\xbf"}) {
    EXPECT_TRUE(isValidUtf8(good)) << good;
  }
  for (const char* bad : {"\x80", "\xc3", "\xc0\xaf", "\xe0\x80\xaf", "\xed\xa0\x80",
                          "\xf4\x90\x80\x80", "\xff", "\xc3\x28"}) {
    EXPECT_FALSE(isValidUtf8(bad)) << bad;
  }
}

TEST(Base64, RoundTripsEveryLengthOfPadding) {
  const std::string bytes("\x00\xff\x10 any", 7);
  for (std::size_t length = 0; length <= bytes.size(); ++length) {
    const auto part = bytes.substr(0, length);
    EXPECT_EQ(base64Decode(base64Encode(part)), part);
  }
  EXPECT_EQ(base64Encode("M\xfb\xff"), "Tfv/");
  EXPECT_EQ(base64Decode("abc"), std::nullopt);
  EXPECT_EQ(base64Decode("ab!="), std::nullopt);
}

}  // namespace
}  // namespace glintboard
