// SPDX-License-Identifier: MIT
#include "agent/connection/listener_service.h"

#include <gtest/gtest.h>

#include "agent/pairing/keychain_paired_device_store.h"
#include "platform/run_on.h"
#include "protocol/message_factory.h"
#include "tests/support/test_agent.h"
#include "tools/phone/phone_connection.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;
using phone::PhoneConnection;
using test::soon;
using Clock = std::chrono::steady_clock;

class ListenerServiceTest : public testing::Test {
 protected:
  test::TestAgent agent;
  AgentServices services{agent.environment(), agent.deckStore};
  ListenerService& listener = services.listenerService();
  const Uuid id = randomUuid();

  void start() {
    agent.run(listener.start());
    ASSERT_TRUE(test::eventually([&] { return state().isRunning; }));
  }
  void TearDown() override { agent.run(listener.shutDown()); }

  ListenerState state() { return agent.run(listener.state()); }
  bool pushes() {
    state();  // runs after what is queued on the service loop
    return listener.hasConnectedPhone();
  }

  PhoneConnection connect(const std::optional<std::string>& token = std::nullopt) {
    return {{"127.0.0.1", agent.port}, token, soon()};
  }

  template <class Payload>
  std::vector<std::string> ask(const std::optional<std::string>& token,
                               const WireMessage<Payload>& request) {
    return agent.run(listener.dispatch(WireCodec::encode(request), token));
  }
};

TEST_F(ListenerServiceTest, RefusesStrangersByMessageType) {
  const auto refusal = std::optional<std::string>("Missing or invalid X-Glintboard-Token header");
  const auto text = [](const auto& message) { return WireCodec::encode(message); };
  const std::pair<std::string, std::vector<std::string>> cases[] = {
      {text(MessageFactory::deckSync(id)),
       {text(MessageFactory::appError("", AppErrorCode::unauthorized, refusal, id))}},
      {text(MessageFactory::appLaunch("a", id)),
       {text(MessageFactory::appError("a", AppErrorCode::unauthorized, refusal, id))}},
      {text(MessageFactory::appFocus("a", id)),
       {text(MessageFactory::appError("a", AppErrorCode::unauthorized, refusal, id))}},
      {text(MessageFactory::actionRun("x", id)),
       {text(MessageFactory::actionError("x", ActionErrorCode::unauthorized, refusal, id))}},
      {text(MessageFactory::shortcutRun("x", std::nullopt, id)),
       {text(MessageFactory::shortcutError("x", ShortcutErrorCode::unauthorized, refusal, id))}},
      {text(MessageFactory::ping(WireDate::now(), id)), {}},
      {text(MessageFactory::appIconRequest({"a"}, id)), {}},
      {text(WireMessage<EmptyPayload>{"deck.snapshot", id, {}}), {}},
      {"no json", {}},
      {"{}", {}},
  };
  for (const std::optional<std::string>& token :
       {std::optional<std::string>(), {""}, {"unknown"}}) {
    for (const auto& [request, replies] : cases) {
      EXPECT_EQ(agent.run(listener.dispatch(request, token)), replies) << request;
    }
  }
  EXPECT_TRUE(agent.desktop.calls.empty());
}

TEST_F(ListenerServiceTest, SendsIconsInRequestOrderWithFreshIds) {
  agent.desktop.installed = {"com.apple.Safari", "com.spotify.client"};
  const auto icons =
      ask(agent.pair(services),
          MessageFactory::appIconRequest({"com.spotify.client", "absent", "com.apple.Safari"}, id));
  ASSERT_EQ(icons.size(), 2u);
  const auto first = WireCodec::decode<AppIconPayload>(icons[0]);
  const auto second = WireCodec::decode<AppIconPayload>(icons[1]);
  ASSERT_TRUE(first && second);
  EXPECT_EQ(first->payload.bundleId, "com.spotify.client");
  EXPECT_NE(first->id, id);
  EXPECT_NE(first->id, second->id);
}

TEST_F(ListenerServiceTest, PongsListWhatRunsWhenThePingArrives) {
  agent.desktop.installed = {"com.apple.Safari"};
  start();
  const auto token = agent.pair(services);
  PhoneConnection phones[] = {connect(token), connect(token), connect(token)};
  const auto farOff = WireDate::parse("9999-12-31T23:59:59Z").value();
  const auto ping = WireCodec::encode(MessageFactory::ping(farOff, id));
  for (const std::set<std::string>& running : {agent.desktop.installed, {}, {"other"}}) {
    auto change = runOn(agent.executors.service(), [&] { agent.desktop.running = running; });
    agent.run(std::move(change));
    for (auto& phone : phones) {
      phone.send(ping, soon());
      phone.send(ping, soon());
    }
    std::vector<std::string> replies = agent.run(listener.dispatch(ping, token));
    for (auto& phone : phones) {
      replies.push_back(phone.receive(soon()).value_or(""));
      replies.push_back(phone.receive(soon()).value_or(""));
    }
    ASSERT_EQ(replies.size(), 7u);
    for (const auto& reply : replies) {
      const auto pong = WireCodec::decode<PongPayload>(reply);
      ASSERT_TRUE(pong);
      EXPECT_LT(pong->payload.rtt, -2e11);
      const auto ids = pong->payload.runningBundleIds.value_or(std::vector<std::string>{"none"});
      EXPECT_EQ(std::set(ids.begin(), ids.end()), running.contains("com.apple.Safari")
                                                      ? agent.desktop.installed
                                                      : std::set<std::string>());
    }
  }
}

TEST_F(ListenerServiceTest, StopKeepsConnectionsButEndsPushes) {
  start();
  EXPECT_TRUE(agent.bonjour.isAdvertised);
  auto phone = connect(agent.pair(services));
  ASSERT_TRUE(test::eventually([&] { return pushes(); }));
  EXPECT_THROW(agent.run(listener.start()), ListenerServiceError);
  agent.run(listener.stop());
  EXPECT_FALSE(agent.bonjour.isAdvertised);
  EXPECT_FALSE(state().isRunning);
  EXPECT_FALSE(pushes());
  phone.send(WireCodec::encode(MessageFactory::deckSync(id)), soon());
  EXPECT_TRUE(WireCodec::decode<DecksSnapshotPayload>(phone.receive(soon()).value_or("")));
  EXPECT_THROW(connect(), std::exception);
  agent.run(listener.restart());
  agent.run(services.pairingService().beginReplacementPairing());
  EXPECT_FALSE(pushes()) << "before the phone reconnects";
  EXPECT_TRUE(agent.watchesRunning) << "the phone may still send requests";
  agent.run(services.pairingService().unpairAll());
  EXPECT_FALSE(agent.watchesRunning);
  ASSERT_TRUE(test::eventually([&] { return state().isRunning; }));
  connect();
}

TEST_F(ListenerServiceTest, RetriesATakenPortEightTimes) {
  std::optional<FileDescriptor> taken = test::holdPort(agent.port);
  const auto began = std::chrono::steady_clock::now();
  agent.run(listener.start());
  // Each failed attempt withdraws the advertisement.
  EXPECT_TRUE(test::eventually([&] { return agent.bonjour.withdrawn == 1 + 8; }));
  EXPECT_GE(std::chrono::steady_clock::now() - began, 8 * 400ms);
  taken.reset();
  EXPECT_FALSE(test::eventually([&] { return state().isRunning; }, 800ms)) << "a ninth attempt";
  EXPECT_EQ(state().lastError, "Port " + std::to_string(agent.port) +
                                   " is already in use. Quit the other Glintboard Agent first.");
}

TEST_F(ListenerServiceTest, AuthorizesOpenConnectionsWhenTheKeychainAnswersLate) {
  KeychainPairedDeviceStore(agent.keychain).save({{randomUuid(), "Phone", {"stored"}, {}}});
  agent.keychain.hangs = true;
  std::atomic<int> told = 0;
  AgentServices late(agent.environment(), agent.deckStore);
  ListenerService& itsListener = late.listenerService();
  itsListener.whenChanged([&] { told += itsListener.hasConnectedPhone() ? 1 : 0; });
  agent.run(itsListener.start());
  auto phone = connect("stored");
  phone.send(WireCodec::encode(MessageFactory::deckSync(id)), soon());
  EXPECT_TRUE(WireCodec::decode<AppErrorPayload>(phone.receive(soon()).value_or("")));
  EXPECT_FALSE(itsListener.hasConnectedPhone());
  agent.keychain.recover();
  EXPECT_TRUE(test::eventually([&] { return told > 0 && agent.watchesRunning; }));
  agent.run(itsListener.pushDecksSnapshot());
  EXPECT_TRUE(WireCodec::decode<DecksSnapshotPayload>(phone.receive(soon()).value_or("")));
  agent.run(itsListener.shutDown());
}

TEST_F(ListenerServiceTest, FirstRepliesWaitForTheFirstScan) {
  agent.desktop.installed = {"com.apple.Safari"};
  agent.scansAtOnce = false;
  start();
  const auto token = agent.pair(services);
  const std::string questions[] = {
      WireCodec::encode(MessageFactory::ping(WireDate::now(), id)),
      WireCodec::encode(MessageFactory::deckSync(id)),
      WireCodec::encode(MessageFactory::appFocus("com.apple.Safari", id)),
  };
  auto stranger = connect();
  for (const bool looks : {true, false}) {
    for (const std::string& question : questions) {
      agent.desktop.running = {};
      std::optional<PhoneConnection> phone(connect(token));
      ASSERT_TRUE(test::eventually([&] { return agent.watchesRunning.load(); }));
      const auto asked = Clock::now();
      phone->send(question, soon());
      stranger.send(WireCodec::encode(MessageFactory::deckSync(id)), soon());
      EXPECT_TRUE(stranger.receive(soon())) << "others do not wait";
      auto look = runOn(agent.executors.service(), [&] {
        agent.desktop.running = agent.desktop.installed;
        if (looks) {
          agent.endScan();
        }
      });
      agent.run(std::move(look));
      const auto answer = phone->receive(soon()).value_or("");
      const bool isRight =
          answer.find(R"("runningBundleIds":["com.apple.Safari")") != std::string::npos ||
          answer.find("app.ok") != std::string::npos;
      // On a busy computer the scan may end after the timeout.
      EXPECT_TRUE(isRight || Clock::now() - asked >= RunningWatch::timeout) << answer;
      phone.reset();
      ASSERT_TRUE(test::eventually([&] { return !agent.watchesRunning; }));
    }
  }
}

TEST_F(ListenerServiceTest, StopsScanningWhileNoRequestsArrive) {
  std::atomic<bool> isOn = false;
  const auto watch = std::make_shared<RunningWatch>(
      agent.executors.service(), [&](bool on, const std::function<void()>&) { isOn = on; },
      std::chrono::milliseconds(1));
  const auto onService = [&](auto function) {
    auto running = runOn(agent.executors.service(), function);
    return agent.run(std::move(running));
  };
  onService([&] { watch->setWanted(true); });
  for (int time = 0; time < 2; ++time) {
    EXPECT_TRUE(test::eventually([&] { return !isOn; }));
    EXPECT_FALSE(onService([&] { return watch->ask(); })) << "the last scan is outdated";
  }
  onService([&] { watch->setWanted(false); });
  EXPECT_FALSE(isOn);
}

}  // namespace
}  // namespace glintboard
