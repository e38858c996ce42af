// SPDX-License-Identifier: MIT
// Ports of this computer.
#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <stdexcept>

#include "platform/file_descriptor.h"

namespace glintboard::test {

// A socket that holds a port of all addresses; port 0 lets the system choose.
inline FileDescriptor holdPort(std::uint16_t port) {
  FileDescriptor socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  if (::bind(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0 ||
      ::listen(socket.get(), 1) != 0) {
    throw std::runtime_error("the port cannot be held");
  }
  return socket;
}

inline std::uint16_t portOf(const FileDescriptor& socket) {
  sockaddr_in address{};
  socklen_t size = sizeof(address);
  ::getsockname(socket.get(), reinterpret_cast<sockaddr*>(&address), &size);
  return ntohs(address.sin_port);
}

inline std::uint16_t freePort() {
  return portOf(holdPort(0));
}

}  // namespace glintboard::test
