// SPDX-License-Identifier: MIT
// The agent's services over doubles of the desktop, on their own port.
#pragma once

#include "agent/decks/deck_store.h"
#include "agent/services/agent_services.h"
#include "tests/support/await.h"
#include "tests/support/eventually.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/fakes.h"
#include "tests/support/ports.h"
#include "tests/support/temporary_folder.h"

namespace glintboard::test {

struct TestAgent {
  TemporaryFolder folder;
  FakeDesktop desktop;
  Sound sound;
  FakeOutput audioOutput{sound};
  FakeRunner processRunner;
  FakeKeychain keychain;
  FakeBonjour bonjour;
  Observers nameChanges;
  std::atomic<bool> watchesRunning = false;
  // Whether the first scan ends at once; otherwise it ends when `endScan` is called.
  bool scansAtOnce = true;
  std::function<void()> endScan;
  std::optional<std::string> name = "Test Computer";
  std::uint16_t port = freePort();
  Executors executors;
  DeckStore deckStore{executors.service(), executors.workers(), folder / "decks.json"};

  AgentEnvironment environment() {
    QImage image(1, 1, QImage::Format_ARGB32);
    image.fill(Qt::red);
    return {.executors = executors,
            .workspace = desktop.client(),
            .applicationIcons = {[](const ApplicationLocation&) { return ContentModification{}; },
                                 [image](const ApplicationLocation&, int) { return image; }},
            .shortcutIcons = noShortcutIcons(),
            .processRunner = processRunner,
            .audioOutput = audioOutput,
            .keychain = keychain,
            .bonjour = bonjour,
            .localizedName = [this] { return name; },
            .nameChanges = nameChanges,
            .watchRunningApplications =
                [this](bool on, std::function<void()> scanned) {
                  if (on && scansAtOnce) {
                    scanned();
                  }
                  endScan = std::move(scanned);
                  watchesRunning = on;
                },
            .port = port,
            .shortcutsExecutable = "/bin/true"};
  }

  template <class T>
  T run(Awaitable<T> operation) {
    return await(executors.service(), std::move(operation));
  }
  // Pairs a phone and returns its token.
  std::string pair(AgentServices& services) {
    auto& pairing = services.pairingService();
    const PairRequestPayload request{PairingMethod::pin, run(pairing.state()).currentPIN, "Phone",
                                     randomUuid()};
    const auto response = run(pairing.handlePairRequest(request, randomUuid()));
    return std::get<WireMessage<PairOKPayload>>(response).payload.token;
  }
};

}  // namespace glintboard::test
