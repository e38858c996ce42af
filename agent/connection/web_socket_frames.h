// SPDX-License-Identifier: MIT
// The frames of the WebSocket protocol (RFC 6455), a server's side.
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

// Adds an unfragmented frame to what goes out.
void append(std::string& output, Opcode opcode, std::string_view payload);
void appendClose(std::string& output, CloseCode code);

// What a peer sent: a message (text or binary, put together again), a control frame, or what ends
// the connection.
struct Received {
  enum class Kind { message, ping, pong, close };
  Kind kind = Kind::message;
  std::string data;                         // the message, or a control frame's payload
  CloseCode closeCode = CloseCode::normal;  // to answer a close with, or to close with
};

// Takes messages out of the bytes of one connection.
class Reader {
 public:
  // A longer message is an error.
  explicit Reader(std::size_t maxMessage) : maxMessage_(maxMessage) {}

  void setMaxMessage(std::size_t maxMessage) { maxMessage_ = maxMessage; }
  void add(std::string_view bytes) { bytes_ += bytes; }
  // The next that is complete in what was added; none when more is needed, and for good after a
  // close.
  std::optional<Received> next();

 private:
  struct Frame {
    Opcode opcode{};
    bool isFinal = false;
    std::string_view payload;
  };

  // Takes a frame off the bytes and unmasks it.
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
  std::optional<Opcode> fragmented_;  // of the message whose fragments come
  std::string message_;               // those that have come
};

}  // namespace glintboard::WebSocketFrames
