// SPDX-License-Identifier: MIT
#include "agent/connection/web_socket_frames.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "protocol/utf8.h"

namespace glintboard::WebSocketFrames {
namespace {

constexpr unsigned finalBit = 0x80;
constexpr unsigned reservedBits = 0x70;
constexpr unsigned maskedBit = 0x80;
constexpr std::size_t maxControlPayload = 125;
constexpr std::size_t maskLength = 4;
constexpr std::size_t keptCapacity = 64 << 10;

bool isControl(Opcode opcode) {
  return static_cast<unsigned>(opcode) >= static_cast<unsigned>(Opcode::close);
}

bool isKnown(unsigned opcode) {
  return opcode <= static_cast<unsigned>(Opcode::binary) ||
         (opcode >= static_cast<unsigned>(Opcode::close) &&
          opcode <= static_cast<unsigned>(Opcode::pong));
}

// Whether a peer may send this close code.
bool isSendable(unsigned code) {
  return (code >= 1000 && code <= 1014 && code != 1004 && code != 1005 && code != 1006) ||
         (code >= 3000 && code <= 4999);
}

void appendBigEndian(std::string& output, std::uint64_t number, int bytes) {
  while (bytes-- > 0) {
    output += static_cast<char>(number >> 8 * bytes & 0xFF);
  }
}

std::uint64_t bigEndian(std::string_view bytes) {
  std::uint64_t number = 0;
  for (const char byte : bytes) {
    number = number << 8 | static_cast<unsigned char>(byte);
  }
  return number;
}

// Unmasks eight bytes at a time.
void unmask(char* payload, std::size_t length, const char* mask) {
  std::uint64_t masks = 0;
  std::memcpy(&masks, mask, maskLength);
  std::memcpy(reinterpret_cast<char*>(&masks) + maskLength, mask, maskLength);
  for (; length >= sizeof(masks); length -= sizeof(masks), payload += sizeof(masks)) {
    std::uint64_t word = 0;
    std::memcpy(&word, payload, sizeof(word));
    word ^= masks;
    std::memcpy(payload, &word, sizeof(word));
  }
  for (std::size_t i = 0; i < length; ++i) {
    payload[i] = static_cast<char>(payload[i] ^ mask[i % maskLength]);
  }
}

}  // namespace

void append(std::string& output, Opcode opcode, std::string_view payload) {
  output += static_cast<char>(finalBit | static_cast<unsigned>(opcode));
  if (payload.size() <= maxControlPayload) {
    output += static_cast<char>(payload.size());
  } else if (payload.size() <= 0xFFFF) {
    output += static_cast<char>(126);
    appendBigEndian(output, payload.size(), 2);
  } else {
    output += static_cast<char>(127);
    appendBigEndian(output, payload.size(), 8);
  }
  output += payload;
}

void appendClose(std::string& output, CloseCode code) {
  std::string payload;
  appendBigEndian(payload, static_cast<std::uint16_t>(code), 2);
  append(output, Opcode::close, payload);
}

std::optional<Received> Reader::next() {
  while (!ended_) {
    const auto frame = takeFrame();
    auto received = frame ? take(*frame) : std::nullopt;
    if (violation_) {
      received = closing(*violation_);
    }
    if (received) {
      ended_ = received->kind == Received::Kind::close;
      return received;
    }
    if (!frame) {
      break;
    }
  }
  forgetTaken();
  return std::nullopt;
}

std::optional<Reader::Frame> Reader::takeFrame() {
  const std::string_view rest = std::string_view(bytes_).substr(taken_);
  if (rest.size() < 2) {
    return std::nullopt;
  }
  const unsigned head = static_cast<unsigned char>(rest[0]);
  const unsigned second = static_cast<unsigned char>(rest[1]);
  const auto opcode = static_cast<Opcode>(head & 0x0F);
  std::uint64_t length = second & 0x7F;
  const std::size_t longer = length == 126 ? 2 : length == 127 ? 8 : 0;
  if ((head & reservedBits) != 0 || !isKnown(head & 0x0F) || (second & maskedBit) == 0 ||
      (isControl(opcode) && (longer != 0 || (head & finalBit) == 0))) {
    violation_ = CloseCode::protocolError;
    return std::nullopt;
  }
  if (longer != 0) {
    if (rest.size() < 2 + longer) {
      return std::nullopt;
    }
    length = bigEndian(rest.substr(2, longer));
    if (length <= maxControlPayload || (longer == 8 && length <= 0xFFFF)) {
      violation_ = CloseCode::protocolError;
      return std::nullopt;
    }
  }
  if (!isControl(opcode) && length > maxMessage_ - std::min(maxMessage_, message_.size())) {
    violation_ = CloseCode::tooLong;
    return std::nullopt;
  }
  const std::size_t start = 2 + longer + maskLength;
  if (rest.size() < start + length) {
    return std::nullopt;
  }
  char* const payload = bytes_.data() + taken_ + start;
  unmask(payload, length, payload - maskLength);
  taken_ += start + length;
  return Frame{opcode, (head & finalBit) != 0, {payload, length}};
}

std::optional<Received> Reader::take(const Frame& frame) {
  switch (frame.opcode) {
    case Opcode::close:
      return closeOf(frame.payload);
    case Opcode::ping:
      return Received{Received::Kind::ping, std::string(frame.payload), {}};
    case Opcode::pong:
      return Received{Received::Kind::pong, {}, {}};
    default:
      break;
  }
  if (fragmented_.has_value() != (frame.opcode == Opcode::continuation)) {
    violation_ = CloseCode::protocolError;
    return std::nullopt;
  }
  const Opcode kind = fragmented_.value_or(frame.opcode);
  message_ += frame.payload;
  if (!frame.isFinal) {
    fragmented_ = kind;
    return std::nullopt;
  }
  fragmented_.reset();
  if (kind == Opcode::text && !isValidUtf8(message_)) {
    violation_ = CloseCode::invalidText;
    return std::nullopt;
  }
  return Received{Received::Kind::message, std::exchange(message_, {}), {}};
}

Received Reader::closing(CloseCode code) {
  return {Received::Kind::close, {}, code};
}

Received Reader::closeOf(std::string_view payload) {
  if (payload.empty()) {
    return closing(CloseCode::normal);
  }
  const auto code = static_cast<unsigned>(bigEndian(payload.substr(0, 2)));
  const bool isProper = payload.size() >= 2 && isSendable(code) && isValidUtf8(payload.substr(2));
  return closing(isProper ? static_cast<CloseCode>(code) : CloseCode::protocolError);
}

void Reader::forgetTaken() {
  bytes_.erase(0, std::exchange(taken_, 0));
  if (bytes_.empty() && bytes_.capacity() > keptCapacity) {
    bytes_.shrink_to_fit();
  }
}

}  // namespace glintboard::WebSocketFrames
