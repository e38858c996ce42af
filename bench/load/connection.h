// SPDX-License-Identifier: MIT
// A minimal client, cheap enough that the measurement shows the server.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/file_descriptor.h"

namespace glintboard::bench {

// How messages are delimited.
enum class Framing { webSocket, none };

// A masked text frame with that payload, to be built once and sent many times.
std::string clientFrame(std::string_view payload);

// A connection to a server on this computer. Blocks; one thread. Throws std::system_error, and
// std::runtime_error if the server closes the connection.
class Connection {
 public:
  // Connects. With WebSockets it upgrades, with the token in the header unless that is empty.
  // Without framing, `rawLength` is the length of each reply in bytes.
  Connection(std::uint16_t port, Framing framing, const std::string& token,
             std::size_t rawLength = 0);

  int descriptor() const { return socket_.get(); }
  void send(std::string_view bytes) const;
  // Reads once and returns the number of messages completed. Answers ping frames of the server.
  int receive();
  // The last completed message; only with WebSockets.
  const std::string& latest() const { return latest_; }

 private:
  void upgrade(const std::string& token);
  // Consumes one received frame. False if none is complete.
  bool takeFrame(int& messages);

  FileDescriptor socket_;
  Framing framing_;
  std::size_t rawLength_;
  std::string received_;
  std::size_t taken_ = 0;
  std::string latest_;
};

}  // namespace glintboard::bench
