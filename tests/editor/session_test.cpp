// SPDX-License-Identifier: MIT
// From an empty deck to one that a phone has received.
#include "agent/services/agent_services.h"
#include "tests/editor/editor_window.h"
#include "tests/support/test_agent.h"
#include "tools/phone/agent_session.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;
using EditorSessionTest = test::EditorWindowTest;

TEST_F(EditorSessionTest, FillsAnEmptyDeckAndSendsItToAPhone) {
  test::TestAgent agent;
  agent.desktop.installed = {"calendar", "files"};
  AgentServices services(agent.environment(), stage.store);
  auto& listener = services.listenerService();
  listener.whenChanged([&] { stage.phone = listener.hasConnectedPhone(); });
  agent.run(listener.start());
  ASSERT_TRUE(test::eventually([&] { return agent.run(listener.state()).isRunning; }));
  std::optional<phone::AgentSession> phone(
      std::in_place,
      phone::PhoneConnection({"127.0.0.1", agent.port}, agent.pair(services), test::soon()),
      test::slowdown * 5s);
  phone->sync();
  stage.onSaved = [&] { return listener.pushDecksSnapshot(); };

  storeDeck({}, "Empty");
  open();
  click(card("Files"));
  drag(card("Calendar"), slot(0));
  click("tab-actions");
  click(card("Mute"));
  click("tab-shortcuts");
  drag(card("Tidy up"), slot(2));
  EXPECT_EQ(shown(), "Calendar, Files, Tidy up, Mute");
  EXPECT_FALSE(model->syncIsLive());
  click("save");
  EXPECT_TRUE(test::turnUntil([&] { return window == nullptr; }))
      << "closes once a phone has the deck";

  std::string received;
  for (;;) {
    const auto message = phone->receive(test::soon());
    ASSERT_TRUE(message);
    if (isOfType(*message, MessageType::decksSnapshot)) {
      const auto snapshot = phone::payloadOf<DecksSnapshotPayload>(*message);
      for (const auto& tile : snapshot.decks.front().tiles) {
        received += std::to_string(tile.slot) + " " + tile.label + ", ";
      }
      break;
    }
  }
  EXPECT_EQ(received, "1 Calendar, 2 Files, 3 Tidy up, 4 Mute, ");

  open();
  model->refreshLive();
  EXPECT_TRUE(model->syncIsLive());
  phone.reset();
  ASSERT_TRUE(test::turnUntil([&] { return !stage.phone; }));
  model->refreshLive();
  EXPECT_FALSE(model->syncIsLive());
  agent.run(services.listenerService().shutDown());
}

TEST_F(EditorSessionTest, ClosingDuringASaveFinishesTheSave) {
  storeDeck({app("files", "Files")});
  open();
  click(card("Music"));
  model->save();
  stage.presenter->close();
  model.reset();
  EXPECT_TRUE(test::turnUntil([&] { return stage.announcements == 1; }));
  open();
  EXPECT_EQ(shown(), "Files, Music");
}

}  // namespace
}  // namespace glintboard
