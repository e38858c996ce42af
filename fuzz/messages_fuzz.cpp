// The messages of both sides: what is read can be written, and reads back as the same.
#include "fuzz/fuzz.h"
#include "protocol/wire_codec.h"
#include "protocol/wire_message_parser.h"

namespace glintboard {
namespace {

template <class T>
void readAndWrite(const boost::json::value& value) {
  const auto read = decodeValue<T>(value);
  if (!read) {
    fuzz::require(!read.error().reason.empty(), "a refusal has a reason");
    return;
  }
  const auto again = decodeJson<T>(jsonText(*read));
  fuzz::require(again && *again == *read, "a value that was written reads back as the same");
}

template <class... Payloads>
void readAndWriteEach(const boost::json::value& value) {
  (readAndWrite<WireMessage<Payloads>>(value), ...);
  (readAndWrite<Payloads>(value), ...);
}

}  // namespace
}  // namespace glintboard

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace glintboard;
  const auto text = fuzz::textOf(data, size);
  WireMessageParser::parse(text);
  if (const auto value = parseJson(text)) {
    readAndWriteEach<EmptyPayload, PairRequestPayload, PairOKPayload, PairFailPayload,
                     AppActionPayload, AppOKPayload, AppErrorPayload, DeckSnapshotPayload,
                     DecksSnapshotPayload, AppIconRequestPayload, AppIconPayload, ActionRunPayload,
                     ActionOKPayload, ActionErrorPayload, ShortcutRunPayload, ShortcutOKPayload,
                     ShortcutErrorPayload, PingPayload, PongPayload>(*value);
  }
  return 0;
}
