// SPDX-License-Identifier: MIT
// WebSocket frames. The same messages are read however the bytes are split.
#include <algorithm>
#include <vector>

#include "agent/connection/web_socket_frames.h"
#include "fuzz/fuzz.h"

namespace glintboard {
namespace {

using WebSocketFrames::Received;

constexpr std::size_t maxMessage = 1024;

// What is read from the bytes if they arrive in parts of that size.
std::vector<Received> received(std::string_view bytes, std::size_t part) {
  WebSocketFrames::Reader reader(maxMessage);
  std::vector<Received> all;
  while (!bytes.empty()) {
    const auto size = std::min(part, bytes.size());
    reader.add(bytes.substr(0, size));
    bytes.remove_prefix(size);
    while (auto next = reader.next()) {
      all.push_back(std::move(*next));
    }
  }
  return all;
}

bool same(const Received& one, const Received& other) {
  return one.kind == other.kind && one.data == other.data && one.closeCode == other.closeCode;
}

}  // namespace
}  // namespace glintboard

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace glintboard;
  const auto bytes = fuzz::textOf(data, size);
  const auto whole = received(bytes, std::max<std::size_t>(size, 1));
  for (const auto& each : whole) {
    fuzz::require(each.data.size() <= maxMessage, "no message is longer than allowed");
    fuzz::require(each.kind != Received::Kind::close || &each == &whole.back(),
                  "nothing follows a close");
  }
  for (const std::size_t part : {1, 7}) {
    const auto parts = received(bytes, part);
    fuzz::require(std::ranges::equal(whole, parts, same), "the arrival of the bytes is no matter");
  }
  return 0;
}
