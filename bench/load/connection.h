// SPDX-License-Identifier: MIT
// A client that costs next to nothing, so that what is measured is the server.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/file_descriptor.h"

namespace glintboard::bench {

// How the bytes of a connection are divided into messages.
enum class Framing { webSocket, none };

// One client's frame of that payload; built once and sent again and again.
std::string clientFrame(std::string_view payload);

// A connection to a server on this computer. Blocks; throws std::system_error and
// std::runtime_error. Not for several threads.
class Connection {
 public:
  // Connects, and upgrades with the token unless that is empty. Without framing, replies are as
  // long as `rawLength`.
  Connection(std::uint16_t port, Framing framing, const std::string& token,
             std::size_t rawLength = 0);

  int descriptor() const { return socket_.get(); }
  void send(std::string_view bytes) const;
  // Reads once; returns how many messages that completed. Answers pings of the server.
  int receive();
  // The last message that was completed. Only kept for WebSockets.
  const std::string& latest() const { return latest_; }

 private:
  void upgrade(const std::string& token);
  // Takes one frame off the front of what was received. False when there is no whole one.
  bool takeFrame(int& messages);

  FileDescriptor socket_;
  Framing framing_;
  std::size_t rawLength_;
  std::string received_;
  std::size_t taken_ = 0;
  std::string latest_;
};

}  // namespace glintboard::bench
