// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "protocol/message_factory.h"
#include "protocol/wire_codec.h"
#include "protocol/wire_message_parser.h"

namespace glintboard {
namespace {

const std::string idText = "0F8FAD5B-D9CB-469F-A165-70867728950E";
const Uuid id = *parseUuid(idText);
const WireDate date = *WireDate::parse("2026-11-16T16:25:42Z");

// Expects the message to have this text and to round-trip.
template <class Payload>
void expectRoundTrip(const WireMessage<Payload>& message, const std::string& type,
                     const std::string& payload) {
  const std::string text = WireCodec::encodeString(message);
  EXPECT_EQ(text,
            "{\"id\":\"" + idText + "\",\"payload\":" + payload + ",\"type\":\"" + type + "\"}");
  const auto back = WireCodec::decode<Payload>(text);
  ASSERT_TRUE(back) << text << ": " << back.error().reason;
  EXPECT_EQ(*back, message);
}

TEST(WireMessage, EveryMessageRoundTrips) {
  namespace make = MessageFactory;
  const Uuid device = *parseUuid("00000000-0000-4000-8000-00000000000a");
  expectRoundTrip(
      make::pairRequest(PairingMethod::qr, "s", "Ann's iPhone", device, id), "pair.request",
      R"({"deviceId":"00000000-0000-4000-8000-00000000000A","deviceName":"Ann's iPhone",)"
      R"("method":"qr","secret":"s"})");
  expectRoundTrip(make::pairOK("T", id), "pair.ok", R"({"token":"T"})");
  expectRoundTrip(make::pairFail(PairingFailureReason::alreadyPaired, "m", id), "pair.fail",
                  R"({"message":"m","reason":"already_paired"})");
  expectRoundTrip(make::deckSync(id), "deck.sync", "{}");
  const auto tile = DeckTile::app(1, "A", "a");
  const std::string tileText = R"({"bundleId":"a","id":"a","kind":"app","label":"A","slot":1})";
  const std::string deckText = R"({"deckId":"d","iconRevisions":{"a":"r"},"name":"n",)"
                               R"("runningBundleIds":["a"],"tiles":[)" +
                               tileText + "]}";
  expectRoundTrip(make::deckSnapshot("d", "n", {tile}, {"a"}, {{"a", "r"}}, id), "deck.snapshot",
                  deckText);
  expectRoundTrip(
      make::decksSnapshot({DeckSnapshotPayload{"d", "n", {tile}, {"a"}, {{"a", "r"}}}}, id),
      "decks.snapshot", R"({"decks":[)" + deckText + "]}");
  expectRoundTrip(make::appIconRequest({"a", "b"}, id), "app.icon.request",
                  R"({"bundleIds":["a","b"]})");
  expectRoundTrip(make::appIcon("a", "r", "QQ==", id), "app.icon",
                  R"({"bundleId":"a","pngBase64":"QQ==","revision":"r"})");
  expectRoundTrip(make::appLaunch("a", id), "app.launch", R"({"bundleId":"a"})");
  expectRoundTrip(make::appFocus("a", id), "app.focus", R"({"bundleId":"a"})");
  expectRoundTrip(make::appOK("a", id), "app.ok", R"({"bundleId":"a"})");
  expectRoundTrip(make::appError("a", AppErrorCode::focusFailed, std::nullopt, id), "app.error",
                  R"({"bundleId":"a","code":"focus_failed"})");
  expectRoundTrip(make::ping(date, id), "ping", R"({"ts":"2026-11-16T16:25:42Z"})");
  expectRoundTrip(make::pong(date, std::nullopt, std::nullopt, id), "pong",
                  R"({"ts":"2026-11-16T16:25:42Z"})");
  expectRoundTrip(make::pong(date, -0.5, std::vector<std::string>{}, id), "pong",
                  R"({"rtt":-0.5,"runningBundleIds":[],"ts":"2026-11-16T16:25:42Z"})");
  expectRoundTrip(make::actionRun("x", id), "action.run", R"({"actionId":"x"})");
  expectRoundTrip(make::actionOK("x", id), "action.ok", R"({"actionId":"x"})");
  expectRoundTrip(make::actionError("x", ActionErrorCode::failed, "m", id), "action.error",
                  R"({"actionId":"x","code":"failed","message":"m"})");
  expectRoundTrip(make::shortcutRun("x", "l", id), "shortcut.run",
                  R"({"label":"l","shortcutIdentifier":"x"})");
  expectRoundTrip(make::shortcutOK("x", id), "shortcut.ok", R"({"shortcutIdentifier":"x"})");
  expectRoundTrip(make::shortcutError("x", ShortcutErrorCode::timedOut, "m", id), "shortcut.error",
                  R"({"code":"timed_out","message":"m","shortcutIdentifier":"x"})");
}

TEST(WireMessage, RefusesToEncodeInvalidUtf8) {
  EXPECT_THROW(WireCodec::encodeString(MessageFactory::appOK("\xff", id)), WireCodecError);
}

TEST(WireMessage, DatesAreWholeSecondsInUtc) {
  for (const char* bad : {"2026-11-16T16:25:42.5Z", "2026-11-16T16:25:42+00:00", "2026-11-16",
                          "2026-02-30T00:00:00Z", "2026-11-16T24:00:00Z", ""}) {
    EXPECT_FALSE(WireDate::parse(bad)) << bad;
  }
  EXPECT_EQ(WireDate::parse("2024-02-29T23:59:59Z")->text(), "2024-02-29T23:59:59Z");
}

std::string withPayload(const std::string& type, const std::string& payload) {
  return R"({"type":")" + type + R"(","id":"0f8fad5b-d9cb-469f-a165-70867728950e","payload":)" +
         payload + "}";
}

TEST(WireMessageParser, DistinguishesAcceptedUnknownAndInvalid) {
  const auto ping =
      WireMessageParser::parse(withPayload("ping", R"({"ts":"2026-11-16T16:25:42Z"})"));
  ASSERT_TRUE(ping);
  EXPECT_EQ(std::get<WireMessage<PingPayload>>(*ping), MessageFactory::ping(date, id));

  const auto sync = WireMessageParser::parse(withPayload("deck.sync", R"({"anything":1})"));
  ASSERT_TRUE(sync);
  EXPECT_EQ(std::get<WireMessage<EmptyPayload>>(*sync).id, id);

  const auto focus = WireMessageParser::parse(withPayload("app.focus", R"({"bundleId":"a"})"));
  ASSERT_TRUE(focus);
  EXPECT_EQ(std::get<WireMessageParser::AppFocus>(*focus).message.payload.bundleId, "a");

  for (const char* type : {"deck.snapshot", "pong", "PING", "", "app.launch "}) {
    const auto unknown = WireMessageParser::parse(withPayload(type, "3"));
    ASSERT_TRUE(unknown) << type;
    EXPECT_EQ(std::get<WireMessageParser::Unknown>(*unknown).type, type);
  }
  for (const std::string& bad :
       {withPayload("ping", "{}"), withPayload("ping", R"({"ts":"now"})"),
        withPayload("deck.sync", "[]"), withPayload("deck.sync", "null"),
        std::string(R"({"type":"deck.sync","id":"0f8fad5b-d9cb-469f-a165-70867728950e"})"),
        std::string(R"({"type":"ping","id":"7","payload":{"ts":"2026-11-16T16:25:42Z"}})"),
        std::string(R"({"id":"0f8fad5b-d9cb-469f-a165-70867728950e","payload":{}})"),
        std::string("ping"), std::string()}) {
    EXPECT_FALSE(WireMessageParser::parse(bad)) << bad;
  }
}

}  // namespace
}  // namespace glintboard
