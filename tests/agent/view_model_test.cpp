#include "agent/shell/agent_view_model.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include "agent/shell/menu_content.h"
#include "platform/main_thread.h"
#include "protocol/pairing_qr_payload.h"
#include "tests/support/test_agent.h"
#include "tests/support/turn_until.h"
#include "tools/phone/phone_connection.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;
using test::turnUntil;

class AgentViewModelTest : public testing::Test {
 protected:
  int argc = 1;
  char name[5] = "test";
  char* argv[2] = {name, nullptr};
  QCoreApplication application{argc, argv};
  MainThread mainThread;
  test::TestAgent agent;
  std::unique_ptr<AgentViewModel> viewModel;

  void make() {
    viewModel = std::make_unique<AgentViewModel>(mainThread.executor(), agent.environment(),
                                                 agent.deckStore);
  }
  void TearDown() override {
    // Let the loop see that it is to end before the services go.
    agent.run(viewModel->services().listenerService().shutDown());
  }

  void run(Awaitable<> operation) {
    bool done = false;
    asio::co_spawn(mainThread.executor(), std::move(operation),
                   [&done](std::exception_ptr failure) {
                     EXPECT_FALSE(failure);
                     done = true;
                   });
    EXPECT_TRUE(turnUntil([&] { return done; }));
  }

  PairingResponse pair(Uuid device, const std::string& secret) {
    return agent.run(viewModel->services().pairingService().handlePairRequest(
        {PairingMethod::pin, secret, "Ann's iPhone", device}, randomUuid()));
  }

  QStringList buttons() {
    QStringList texts;
    for (const auto command : MenuContent::commands(*viewModel)) {
      texts.append(MenuContent::buttonText(command));
    }
    return texts;
  }
};

TEST_F(AgentViewModelTest, ShowsThePairingAsItChanges) {
  make();
  EXPECT_EQ(MenuContent::statusText(*viewModel), "Starting\u2026");
  ASSERT_TRUE(turnUntil([&] { return viewModel->isListenerRunning(); }));
  EXPECT_EQ(MenuContent::statusText(*viewModel), "Ready for iPhone");
  EXPECT_EQ(viewModel->pairingStatusText(), "Waiting for iPhone to scan QR");
  const auto address = PairingQRPayload::parse(viewModel->pairingQRString().toStdString());
  ASSERT_TRUE(address);
  EXPECT_EQ(address->macName, "Test Computer");
  EXPECT_EQ(viewModel->bonjourServiceName(), "Test Computer");
  EXPECT_EQ(buttons(), (QStringList{"Edit Deck", "Quit"}));

  for (int i = 0; i < 5; ++i) {
    pair(randomUuid(), "wrong");
  }
  ASSERT_TRUE(turnUntil([&] { return viewModel->isLockedOut(); }));
  EXPECT_EQ(viewModel->pairingStatusText(), "Pairing locked \u2014 too many failed attempts");
  EXPECT_EQ(MenuContent::pairingSection(*viewModel), PairingSection::lockedOut);

  run(viewModel->unpair());
  int notified = 0;
  QObject::connect(viewModel.get(), &AgentViewModel::pairedDevicesChanged, [&] { ++notified; });
  const auto first = pair(randomUuid(), viewModel->currentPIN().toStdString());
  ASSERT_TRUE(turnUntil([&] { return viewModel->isPaired(); }));
  run(viewModel->refresh());
  EXPECT_EQ(notified, 1) << "only a change notifies";
  EXPECT_EQ(viewModel->pairingStatusText(), "Ann's iPhone");
  EXPECT_EQ(MenuContent::statusText(*viewModel), "Waiting for iPhone");
  EXPECT_EQ(buttons(),
            (QStringList{"Edit Deck", "Show Pairing Code\u2026", "Unpair iPhone", "Quit"}));

  const phone::PhoneConnection connection({"127.0.0.1", agent.port},
                                          std::get<WireMessage<PairOKPayload>>(first).payload.token,
                                          std::chrono::steady_clock::now() + 5s);
  EXPECT_TRUE(turnUntil([&] { return viewModel->hasConnectedPhone(); }));
  EXPECT_EQ(MenuContent::statusText(*viewModel), "iPhone connected");
}

TEST_F(AgentViewModelTest, AReplacementShowsTheCodeUntilItIsDoneOrHidden) {
  make();
  ASSERT_TRUE(turnUntil([&] { return !viewModel->currentPIN().isEmpty(); }));
  pair(randomUuid(), viewModel->currentPIN().toStdString());
  run(viewModel->refresh());
  const auto pin = viewModel->currentPIN();
  run(viewModel->showPairingCode());
  EXPECT_TRUE(viewModel->isShowingPairingCode());
  EXPECT_NE(viewModel->currentPIN(), pin);
  EXPECT_EQ(MenuContent::pairingSection(*viewModel), PairingSection::code);
  EXPECT_EQ(buttons(), (QStringList{"Edit Deck", "Hide Pairing Code", "Unpair iPhone", "Quit"}));
  run(viewModel->hidePairingCode());
  EXPECT_FALSE(viewModel->isShowingPairingCode());
  run(viewModel->showPairingCode());
  pair(randomUuid(), viewModel->currentPIN().toStdString());
  EXPECT_TRUE(turnUntil([&] { return !viewModel->isShowingPairingCode(); }));

  run(viewModel->showPairingCode());
  agent.keychain.failure = -25308;
  run(viewModel->unpair());
  EXPECT_FALSE(viewModel->isPaired());
  EXPECT_FALSE(viewModel->isShowingPairingCode());
}

TEST_F(AgentViewModelTest, ARefreshUnderWayDoesNotUndoACommand) {
  make();
  ASSERT_TRUE(turnUntil([&] { return !viewModel->currentPIN().isEmpty(); }));
  pair(randomUuid(), viewModel->currentPIN().toStdString());
  run(viewModel->refresh());
  int refreshes = 0;
  for (int round = 0; round < 200; ++round) {
    for (int i = 0; i < 3; ++i) {
      ++refreshes;
      asio::co_spawn(mainThread.executor(), viewModel->refresh(),
                     [&](std::exception_ptr) { --refreshes; });
    }
    run(viewModel->showPairingCode());
    ASSERT_TRUE(viewModel->isShowingPairingCode()) << round;
    run(viewModel->hidePairingCode());
  }
  EXPECT_TRUE(turnUntil([&] { return refreshes == 0; }));
}

TEST_F(AgentViewModelTest, AFailedListenerIsRestartedAndTheUserMayDoSoToo) {
  auto held = std::make_unique<FileDescriptor>(test::holdPort(agent.port));
  make();
  ASSERT_TRUE(turnUntil([&] { return !viewModel->listenerError().isNull(); }));
  EXPECT_EQ(MenuContent::statusText(*viewModel), "Connection failed");
  EXPECT_EQ(buttons(), (QStringList{"Restart Agent", "Edit Deck", "Quit"}));
  held.reset();
  run(viewModel->restartListener());
  EXPECT_TRUE(turnUntil([&] { return viewModel->isListenerRunning(); }));
  EXPECT_TRUE(viewModel->listenerError().isNull());
}

}  // namespace
}  // namespace glintboard
