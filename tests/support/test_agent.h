// The agent's services over doubles of the desktop, on a port of their own.
#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include "agent/decks/deck_store.h"
#include "agent/shell/agent_services.h"
#include "platform/file_descriptor.h"
#include "tests/support/await.h"
#include "tests/support/eventually.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/fakes.h"
#include "tests/support/temporary_folder.h"

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

inline std::uint16_t freePort() {
  const auto socket = holdPort(0);
  sockaddr_in address{};
  socklen_t size = sizeof(address);
  ::getsockname(socket.get(), reinterpret_cast<sockaddr*>(&address), &size);
  return ntohs(address.sin_port);
}

struct TestAgent {
  TemporaryFolder folder;
  FakeDesktop desktop;
  Sound sound;
  FakeOutput audioOutput{sound};
  FakeRunner processRunner;
  FakeKeychain keychain;
  FakeBonjour bonjour;
  std::atomic<bool> phoneConnected = false;
  std::uint16_t port = freePort();
  Executors executors;
  DeckStore deckStore{executors.service(), executors.workers(), folder / "decks.json"};

  AgentEnvironment environment() {
    QImage image(1, 1, QImage::Format_ARGB32);
    image.fill(Qt::red);
    return {executors,
            desktop.client(),
            {[](const ApplicationLocation&) { return ContentModification{}; },
             [image](const ApplicationLocation&, int) { return image; }},
            noShortcutIcons(),
            processRunner,
            audioOutput,
            keychain,
            bonjour,
            [] { return "Test Computer"; },
            [this](bool connected) { phoneConnected = connected; },
            port,
            "/bin/true"};
  }

  template <class T>
  T run(Awaitable<T> operation) {
    return await(executors.service(), std::move(operation));
  }
};

}  // namespace glintboard::test
