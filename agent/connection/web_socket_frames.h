// SPDX-License-Identifier: MIT
// WebSocket frames (RFC 6455), server side.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace glintboard::WebSocketFrames {

enum class Opcode : std::uint8_t {
  continuation = 0,
  text = 1,
  binary = 2,
  close = 8,
  ping = 9,
  pong = 10,
};

// Why a connection is closed.
enum class CloseCode : std::uint16_t {
  normal = 1000,
  protocolError = 1002,
  invalidText = 1007,
  tooLong = 1009,
};

// Appends an unfragmented frame to the output.
void append(std::string& output, Opcode opcode, std::string_view payload);
void appendClose(std::string& output, CloseCode code);

// A message (text or binary, reassembled) or a control frame from the peer. A violation of the
// protocol gives a close.
struct Received {
  enum class Kind { message, ping, pong, close };
  Kind kind = Kind::message;
  std::string data;                         // the message, or a control frame's payload
  CloseCode closeCode = CloseCode::normal;  // to send in the close frame
};

// Parses the bytes that one connection receives. Not synchronised.
class Reader {
 public:
  // A message of more than `maxMessage` bytes gives a close with CloseCode::tooLong.
  explicit Reader(std::size_t maxMessage) : maxMessage_(maxMessage) {}

  void setMaxMessage(std::size_t maxMessage) { maxMessage_ = maxMessage; }
  void add(std::string_view bytes) { bytes_ += bytes; }
  // The next complete message or control frame; none when more bytes are needed, and always after
  // a close.
  std::optional<Received> next();

 private:
  struct Frame {
    Opcode opcode{};
    bool isFinal = false;
    std::string_view payload;
  };

  // Consumes and unmasks the next complete frame.
  std::optional<Frame> takeFrame();
  std::optional<Received> take(const Frame& frame);
  static Received closing(CloseCode code);
  static Received closeOf(std::string_view payload);
  void forgetTaken();

  std::size_t maxMessage_;
  std::string bytes_;
  std::size_t taken_ = 0;
  std::optional<CloseCode> violation_;
  bool ended_ = false;
  std::optional<Opcode> fragmented_;  // the kind of the unfinished message
  std::string message_;               // its fragments so far
};

}  // namespace glintboard::WebSocketFrames
