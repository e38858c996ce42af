// SPDX-License-Identifier: MIT
// The messages of both sides. What can be read can be written, and reads back as equal.
#include "fuzz/fuzz.h"
#include "protocol/wire_codec.h"
#include "protocol/wire_message_parser.h"

namespace glintboard {
namespace {

template <class T>
void readAndWrite(std::string_view text) {
  const auto read = decodeJson<T>(text);
  if (!read) {
    fuzz::require(!read.error().reason.empty(), "a refusal has a reason");
    return;
  }
  const auto again = decodeJson<T>(jsonText(*read));
  fuzz::require(again && *again == *read, "a value that was written reads back as the same");
  T used = *read;
  fuzz::require(JsonReader(text).readAll(used) && used == *read,
                "what is read replaces what was there");
}

template <class... Payloads>
void readAndWriteEach(std::string_view text) {
  (readAndWrite<WireMessage<Payloads>>(text), ...);
  (readAndWrite<Payloads>(text), ...);
}

}  // namespace
}  // namespace glintboard

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace glintboard;
  const auto text = fuzz::textOf(data, size);
  WireMessageParser::parse(text);
  readAndWriteEach<EmptyPayload, PairRequestPayload, PairOKPayload, PairFailPayload,
                   AppActionPayload, AppOKPayload, AppErrorPayload, DeckSnapshotPayload,
                   DecksSnapshotPayload, AppIconRequestPayload, AppIconPayload, ActionRunPayload,
                   ActionOKPayload, ActionErrorPayload, ShortcutRunPayload, ShortcutOKPayload,
                   ShortcutErrorPayload, PingPayload, PongPayload>(text);
  return 0;
}
