#include <gtest/gtest.h>

#include <QGuiApplication>
#include <future>

#include "agent/editor/deck_editor_model.h"
#include "platform/main_thread.h"
#include "tests/support/test_agent.h"
#include "tests/support/turn_until.h"
#include "tools/phone/agent_session.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;

TEST(DeckEditorLive, ASaveReachesAConnectedPhoneAtOnce) {
  ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
  int argumentCount = 1;
  char program[] = "test";
  char* arguments[] = {program, nullptr};
  const QGuiApplication application(argumentCount, arguments);
  MainThread mainThread;
  test::TestAgent agent;
  agent.desktop.installed = {"com.apple.Safari", "com.apple.Music"};
  agent.desktop.running = {"com.apple.Safari"};
  AgentServices services(agent.environment(), agent.deckStore);
  ShortcutIconProvider shortcutIcons(agent.executors.workerStrand(), test::noShortcutIcons());
  agent.run(services.listenerService().start());
  const auto state = agent.run(services.pairingService().state());
  const auto paired = agent.run(services.pairingService().handlePairRequest(
      {PairingMethod::pin, state.currentPIN, "Phone", randomUuid()}, randomUuid()));
  ASSERT_TRUE(
      test::eventually([&] { return agent.run(services.listenerService().state()).isRunning; }));
  phone::AgentSession phone(
      phone::PhoneConnection({"127.0.0.1", agent.port},
                             std::get<WireMessage<PairOKPayload>>(paired).payload.token,
                             std::chrono::steady_clock::now() + 5s),
      5s);
  phone.sync();

  bool hasClosed = false;
  const auto model = DeckEditorModel::create(
      {.mainThread = mainThread.executor(),
       .timers = agent.executors.service(),
       .workers = agent.executors.workers(),
       .deckStore = agent.deckStore,
       .workspace = agent.desktop.client(),
       .appsCatalog = InstalledAppsCatalog(
           agent.executors.workers(),
           {[] { return std::vector<ListedApplication>(); },
            [](const std::filesystem::path&) { return std::optional<std::string>(); }},
           services.environment().applicationIcons),
       .shortcutsCatalog = ShortcutsCatalog("/bin/true", agent.processRunner),
       .shortcutIconProvider = shortcutIcons,
       .isPhoneConnected = [] { return true; },
       .onSaved = [&] { return services.listenerService().pushDecksSnapshot(); }});
  QObject::connect(model.get(), &DeckEditorModel::closeRequested, [&] { hasClosed = true; });
  model->open();
  ASSERT_TRUE(test::turnUntil([&] { return !model->isLoading(); }));
  const auto safari = model->tilesModel()->index(0);
  EXPECT_EQ(safari.data(DeckTilesModel::IsRunningRole), true);
  EXPECT_EQ(model->tilesModel()->index(1).data(DeckTilesModel::IsRunningRole), false);
  agent.desktop.running.clear();
  model->refreshLive();
  EXPECT_EQ(safari.data(DeckTilesModel::IsRunningRole), false);

  model->addAction("system.volume.up");
  model->setDeckName("On air");

  auto received = std::async(std::launch::async, [&phone] {
    for (;;) {
      const auto message = phone.receive(std::chrono::steady_clock::now() + 5s);
      if (!message || isOfType(*message, MessageType::decksSnapshot)) {
        return std::pair(message, std::chrono::steady_clock::now());
      }
    }
  });
  const auto pressed = std::chrono::steady_clock::now();
  model->save();
  EXPECT_TRUE(test::turnUntil([&] { return hasClosed && !model->isSaving(); }));
  const auto [message, arrived] = received.get();
  ASSERT_TRUE(message);
  const auto decks = phone::payloadOf<DecksSnapshotPayload>(*message).decks;
  EXPECT_EQ(decks.front().name, "On air");
  EXPECT_EQ(decks.front().tiles.back().label, "Vol +");
  const auto taken = std::chrono::duration_cast<std::chrono::milliseconds>(arrived - pressed);
  RecordProperty("milliseconds", static_cast<int>(taken.count()));
  EXPECT_LT(taken, 100ms);
  model->close();
  agent.run(services.listenerService().shutDown());
}

}  // namespace
}  // namespace glintboard
