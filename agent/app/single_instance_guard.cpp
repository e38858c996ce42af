// SPDX-License-Identifier: MIT
#include "agent/app/single_instance_guard.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <chrono>
#include <thread>

#include "platform/file_descriptor.h"
#include "platform/log.h"

namespace glintboard::SingleInstanceGuard {
namespace {

using namespace std::chrono_literals;

constexpr auto pause = 100ms;
constexpr int maxPortAttempts = 50;

// Whether the port can be bound. True also when the probe's socket cannot be created.
bool isPortFree(std::uint16_t port) {
  const FileDescriptor probe(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
  if (!probe) {
    return true;
  }
  const int on = 1;
  ::setsockopt(probe.get(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof(on));
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_ANY);
  return ::bind(probe.get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
}

void end(AgentInstance& instance) {
  if (!instance.terminate()) {
    instance.forceTerminate();
  }
  std::this_thread::sleep_for(pause);
  if (!instance.isTerminated()) {
    log::warning("the agent ", instance.processIdentifier(), " does not end and is killed");
    instance.forceTerminate();
  }
}

}  // namespace

bool enforce(AgentInstances& instances, std::uint16_t port) {
  const auto others = instances.claim();
  if (!others) {
    return false;
  }
  for (const auto& other : *others) {
    end(*other);
  }
  if (!others->empty()) {
    waitForPortRelease(maxPortAttempts, port);
  }
  return true;
}

void waitForPortRelease(int maxAttempts, std::uint16_t port) {
  for (int attempt = 0; attempt < maxAttempts && !isPortFree(port); ++attempt) {
    std::this_thread::sleep_for(pause);
  }
}

}  // namespace glintboard::SingleInstanceGuard
