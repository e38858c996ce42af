// SPDX-License-Identifier: MIT
// Measures the time from a save until 50 phones have the new decks. The agent's services run in
// this process on a simulated desktop with a real decks file, the phones in another thread.
//   glintboard-save-bench TIMES

#include <QGuiApplication>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <memory>
#include <vector>

#include "bench/load/connection.h"
#include "protocol/message_factory.h"
#include "protocol/wire_codec.h"
#include "tests/support/test_agent.h"

namespace {

using namespace glintboard;
using Clock = std::chrono::steady_clock;

constexpr int phones = 50;
constexpr int keys = 24;

std::vector<DeckTile> tiles(const std::string& label) {
  std::vector<DeckTile> result;
  for (int i = 1; i <= keys; ++i) {
    result.push_back(DeckTile::app(i, label, "org.example.App" + std::to_string(i)));
  }
  return result;
}

std::string pair(test::TestAgent& agent, AgentServices& services) {
  const auto secrets = agent.run(services.pairingService().state());
  const auto response = agent.run(services.pairingService().handlePairRequest(
      {PairingMethod::pin, secrets.currentPIN, "Phone", randomUuid()}, randomUuid()));
  return std::get<WireMessage<PairOKPayload>>(response).payload.token;
}

void turn(AgentServices& services, test::TestAgent& agent, const std::string& label) {
  const auto workspace = services.environment().workspace;
  agent.run(agent.deckStore.saveDeck(DeckCategoryID::gaming, "Gaming", tiles(label), workspace));
  agent.run(services.listenerService().pushDecksSnapshot());
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  const int times = argc > 1 ? std::atoi(argv[1]) : 10;
  test::TestAgent agent;
  for (int i = 1; i <= keys; ++i) {
    agent.desktop.installed.insert("org.example.App" + std::to_string(i));
  }
  AgentServices services(agent.environment(), agent.deckStore);
  agent.run(services.listenerService().start());
  test::eventually([&] { return agent.run(services.listenerService().state()).isRunning; });
  const std::string token = pair(agent, services);
  std::vector<std::unique_ptr<bench::Connection>> all;
  for (int i = 0; i < phones; ++i) {
    all.push_back(
        std::make_unique<bench::Connection>(agent.port, bench::Framing::webSocket, token));
    // A request ensures that the connection is in the push set.
    all.back()->send(bench::clientFrame(WireCodec::encode(MessageFactory::deckSync(randomUuid()))));
    while (all.back()->receive() == 0) {
    }
  }
  std::vector<double> taken;
  for (int i = 0; i < times; ++i) {
    const auto label = "Label " + std::to_string(i);
    const auto start = Clock::now();
    turn(services, agent, label);
    for (const auto& phone : all) {
      while (phone->receive() == 0) {
      }
      if (phone->latest().find(label) == std::string::npos) {
        std::fputs("a phone has other decks\n", stderr);
        return 1;
      }
    }
    taken.push_back(std::chrono::duration<double, std::milli>(Clock::now() - start).count());
  }
  agent.run(services.listenerService().shutDown());
  std::ranges::sort(taken);
  std::printf("{\"p50\": %.3f, \"max\": %.3f}\n", taken[taken.size() / 2], taken.back());
  return 0;
}
