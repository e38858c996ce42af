// SPDX-License-Identifier: MIT
#include "bench/load/connection.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

#include <array>
#include <cerrno>
#include <stdexcept>
#include <system_error>

namespace glintboard::bench {
namespace {

constexpr std::array<unsigned char, 4> mask = {0x12, 0x34, 0x56, 0x78};
constexpr unsigned pingOpcode = 9;
constexpr unsigned closeOpcode = 8;

[[noreturn]] void fail(const char* what) {
  throw std::system_error(errno, std::generic_category(), what);
}

std::string maskedFrame(unsigned opcode, std::string_view payload) {
  std::string frame;
  frame += static_cast<char>(0x80 | opcode);
  if (payload.size() < 126) {
    frame += static_cast<char>(0x80 | payload.size());
  } else {
    frame += static_cast<char>(0x80 | 126);
    frame += static_cast<char>(payload.size() >> 8);
    frame += static_cast<char>(payload.size() & 0xFF);
  }
  frame.append(mask.begin(), mask.end());
  for (std::size_t i = 0; i < payload.size(); ++i) {
    frame += static_cast<char>(static_cast<unsigned char>(payload[i]) ^ mask[i % 4]);
  }
  return frame;
}

}  // namespace

std::string clientFrame(std::string_view payload) {
  if (payload.size() > 0xFFFF) {
    throw std::runtime_error("the message is too long");
  }
  return maskedFrame(1, payload);
}

Connection::Connection(std::uint16_t port, Framing framing, const std::string& token,
                       std::size_t rawLength)
    : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)),
      framing_(framing),
      rawLength_(rawLength) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  if (::connect(socket_.get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0) {
    fail("connect");
  }
  const int on = 1;
  ::setsockopt(socket_.get(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof(on));
  if (framing == Framing::webSocket) {
    upgrade(token);
  }
}

void Connection::upgrade(const std::string& token) {
  send(
      "GET / HTTP/1.1\r\nHost: localhost\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
      "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\nSec-WebSocket-Version: 13\r\n" +
      (token.empty() ? "" : "X-Glintboard-Token: " + token + "\r\n") + "\r\n");
  std::size_t end = std::string::npos;
  while (end == std::string::npos) {
    char buffer[4096];
    const ssize_t count = ::recv(socket_.get(), buffer, sizeof(buffer), 0);
    if (count <= 0) {
      fail("upgrade");
    }
    received_.append(buffer, static_cast<std::size_t>(count));
    end = received_.find("\r\n\r\n");
  }
  if (!received_.starts_with("HTTP/1.1 101")) {
    throw std::runtime_error("no upgrade: " + received_);
  }
  received_.erase(0, end + 4);
}

void Connection::send(std::string_view bytes) const {
  while (!bytes.empty()) {
    const ssize_t count = ::send(socket_.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (count < 0) {
      fail("send");
    }
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

int Connection::receive() {
  char buffer[1 << 16];
  const ssize_t count = ::recv(socket_.get(), buffer, sizeof(buffer), 0);
  if (count <= 0) {
    fail("the server has closed the connection");
  }
  received_.append(buffer, static_cast<std::size_t>(count));
  int messages = 0;
  if (framing_ == Framing::none) {
    messages = static_cast<int>(received_.size() / rawLength_);
    received_.erase(0, static_cast<std::size_t>(messages) * rawLength_);
    return messages;
  }
  taken_ = 0;
  while (takeFrame(messages)) {
  }
  received_.erase(0, taken_);
  return messages;
}

bool Connection::takeFrame(int& messages) {
  const auto byte = [this](std::size_t i) {
    return static_cast<unsigned char>(received_[taken_ + i]);
  };
  const std::size_t available = received_.size() - taken_;
  if (available < 2) {
    return false;
  }
  std::size_t length = byte(1) & 0x7F;
  const std::size_t more = length == 126 ? 2 : length == 127 ? 8 : 0;
  if (available < 2 + more) {
    return false;
  }
  if (more != 0) {
    length = 0;
    for (std::size_t i = 0; i < more; ++i) {
      length = length << 8 | byte(2 + i);
    }
  }
  if (available < 2 + more + length) {
    return false;
  }
  const std::string_view payload(received_.data() + taken_ + 2 + more, length);
  const unsigned opcode = byte(0) & 0x0FU;
  if (opcode == pingOpcode) {
    send(maskedFrame(10, payload));
  } else if (opcode == closeOpcode) {
    throw std::runtime_error("the server ends the connection");
  } else if (opcode < closeOpcode) {
    if (opcode != 0) {
      latest_.clear();
    }
    latest_ += payload;  // a message may be fragmented
    messages += (byte(0) & 0x80U) != 0 ? 1 : 0;
  }
  taken_ += 2 + more + length;
  return true;
}

}  // namespace glintboard::bench
