// SPDX-License-Identifier: MIT
#include "tests/agent/menu_fixture.h"

#include <QAccessible>
#include <QSignalSpy>

#include "agent/pairing/keychain_paired_device_store.h"
#include "protocol/pairing_qr_payload.h"

namespace glintboard {
namespace {

using test::MenuTest;
using test::pairedButtons;
using test::replacementButtons;
using test::turnUntil;
using test::unpairedButtons;

TEST_F(MenuTest, ShowsThePairingCodeAsTextAndAsPicture) {
  start();
  EXPECT_EQ(text("status"), "Starting\u2026");
  ASSERT_TRUE(showsStatus("Ready for iPhone"));
  ASSERT_TRUE(showsState("pairingPanel", unpairedButtons));
  EXPECT_EQ(text("instruction"),
            "Open Glintboard on your iPhone and tap Pair. Point the camera at this code.");
  EXPECT_EQ(pin().size(), 6u);
  EXPECT_EQ(menuModel->pinGroups().join(""), pin().c_str());
  QTest::qWait(250);
  const auto address = viewModel->pairingQRString().toStdString();
  EXPECT_EQ(test::codeIn(window->view()->grabWindow()), address + "\n");
  EXPECT_EQ(PairingQRPayload::parse(address).value().macName, "Test Computer");
  EXPECT_EQ(viewModel->bonjourServiceName(), "Test Computer");
  agent.name = "Another Name";
  agent.nameChanges.notify();
  EXPECT_TRUE(turnUntil([&] { return viewModel->bonjourServiceName() == "Another Name"; }));
}

TEST_F(MenuTest, FollowsAPhoneThatPairsAndConnects) {
  startAndWait();
  int changes = 0;
  QObject::connect(viewModel.get(), &AgentViewModel::pairedDevicesChanged, [&] { ++changes; });
  const std::string token = pairOverTheWire(pin());
  ASSERT_TRUE(showsState("pairedDevice", pairedButtons));
  run(viewModel->refresh());
  EXPECT_EQ(changes, 1) << "a refresh without a change notifies nobody";
  EXPECT_EQ(text("pairedDevice"), "Ann's iPhone");
  EXPECT_TRUE(showsStatus("Waiting for iPhone"));
  std::optional<phone::AgentSession> connection(phone(token));
  EXPECT_TRUE(showsStatus("iPhone connected"));
  connection.reset();
  const auto& listener = viewModel->services().listenerService();
  ASSERT_TRUE(test::eventually([&] { return !listener.hasConnectedPhone(); }));
  agent.run(viewModel->services().pairingService().state());  // until the service loop has notified
  EXPECT_TRUE(viewModel->hasConnectedPhone()) << "before the main thread runs";
  QCoreApplication::processEvents();
  EXPECT_FALSE(viewModel->hasConnectedPhone()) << "without a refresh";
}

TEST_F(MenuTest, ShowsHidesAndLocksTheCodeOfAReplacement) {
  startPaired();
  const std::string first = pin();
  for (int time = 0; time < 2; ++time) {
    click("pairingCode");
    ASSERT_TRUE(showsState("pairingPanel", replacementButtons));
    EXPECT_EQ(text("instruction"),
              "Scan to pair this iPhone again. This replaces the pairing on this Mac.");
    EXPECT_TRUE(turnUntil([&] { return pin() != first; }));
    if (time == 0) {
      click("pairingCode");
      ASSERT_TRUE(showsState("pairedDevice", pairedButtons));
    }
  }
  failPairing();
  ASSERT_TRUE(showsState("lockMessage", replacementButtons));
  click("unpair");
  EXPECT_TRUE(showsState("pairingPanel", unpairedButtons));
}

TEST_F(MenuTest, RefreshInProgressDoesNotUndoACommand) {
  startPaired();
  int refreshes = 0;
  for (int round = 0; round < 50; ++round) {
    for (int i = 0; i < 3; ++i) {
      ++refreshes;
      asio::co_spawn(mainThread.executor(), viewModel->refresh(),
                     [&](const std::exception_ptr&) { --refreshes; });
    }
    run(viewModel->showPairingCode());
    ASSERT_TRUE(viewModel->isShowingPairingCode()) << round;
    run(viewModel->hidePairingCode());
  }
  EXPECT_TRUE(turnUntil([&] { return refreshes == 0; }));
}

TEST_F(MenuTest, HidesTheCodeAfterFiveWrongPINs) {
  startAndWait();
  failPairing();
  ASSERT_TRUE(showsState("lockMessage", unpairedButtons));
  EXPECT_EQ(text("lockMessage"), "Pairing locked \u2014 too many failed attempts");
  EXPECT_FALSE(shows("pin"));
  QTest::qWait(250);
  EXPECT_EQ(test::codeIn(window->view()->grabWindow()), "");
}

TEST_F(MenuTest, ShowsAListenerFailureAndRestarts) {
  auto held = std::make_unique<FileDescriptor>(test::holdPort(agent.port));
  start();
  ASSERT_TRUE(showsStatus("Connection failed"));
  EXPECT_FALSE(text("listenerError").isEmpty());
  EXPECT_EQ(visibleButtons(), (QStringList{"Restart Agent", "Edit Deck", "Quit"}));
  held.reset();
  click("restart");
  EXPECT_TRUE(showsStatus("Ready for iPhone"));
  EXPECT_FALSE(shows("listenerError"));
  EXPECT_FALSE(shows("restart"));
}

TEST_F(MenuTest, RestartsAFailedListenerAtMostOnceInFiveSeconds) {
  agent.name.reset();
  KeychainPairedDeviceStore(agent.keychain)
      .save({{randomUuid(), "A", {"a"}, {}}, {randomUuid(), "B", {"b"}, {}}});
  start();
  ASSERT_TRUE(showsStatus("Waiting for iPhone"));
  EXPECT_EQ(text("pairedDevice"), "A, B");
  EXPECT_EQ(viewModel->bonjourServiceName(), "Glintboard Mac");
  EXPECT_EQ(PairingQRPayload::parse(viewModel->pairingQRString().toStdString()).value().macName,
            "Glintboard Mac");

  agent.run(viewModel->services().listenerService().stop());
  run(viewModel->refresh());
  EXPECT_FALSE(QTest::qWaitFor([&] { return agent.bonjour.published != 1; }, 1200));
  run(viewModel->attemptAutomaticRecoveryIfNeeded());
  EXPECT_TRUE(turnUntil([&] { return agent.bonjour.published == 2; }));
  run(viewModel->attemptAutomaticRecoveryIfNeeded());
  EXPECT_FALSE(QTest::qWaitFor([&] { return agent.bonjour.published != 2; }, 300));
}

TEST_F(MenuTest, ShowsTheHintUntilItIsDismissed) {
  auto connection = phone(startPaired());
  EXPECT_FALSE(shows("hint"));
  agent.processRunner.result.timedOut = true;
  connection.ask(MessageFactory::shortcutRun("x", std::nullopt, randomUuid()));
  ASSERT_TRUE(turnUntil([&] { return shows("hint"); }));
  EXPECT_EQ(text("hint"), viewModel->shortcutCoachMessage());
  click("dismiss");
  EXPECT_TRUE(turnUntil([&] { return !shows("hint") && !shows("dismiss"); }));
}

TEST_F(MenuTest, WorksFromTheKeyboardAndForScreenReaders) {
  QAccessible::setActive(true);
  startPaired();
  const auto named = [](QQuickItem* shown) {
    auto* const accessible = QAccessible::queryAccessibleInterface(shown);
    return accessible != nullptr ? accessible->text(QAccessible::Name) : QString();
  };
  QStringList reached;
  for (int i = 0; i < 4; ++i) {
    key(i % 2 == 0 ? Qt::Key_Tab : Qt::Key_Down);
    reached.append(named(window->view()->activeFocusItem()));
    EXPECT_TRUE(window->view()->activeFocusItem()->property("visualFocus").toBool());
  }
  EXPECT_EQ(reached, pairedButtons);
  key(Qt::Key_Return);
  EXPECT_EQ(quits, 1);
  key(Qt::Key_Up);
  agent.keychain.failure = keychainInteractionNotAllowed;
  key(Qt::Key_Space);
  ASSERT_TRUE(showsState("pairingPanel", unpairedButtons))
      << "the space bar unpairs even if the keychain fails";
  EXPECT_EQ(named(item("pin")), text("pin"));
  EXPECT_EQ(named(item("qrCode")), "Pairing QR code");
  key(Qt::Key_Q, Qt::ControlModifier);
  EXPECT_EQ(quits, 2);
  click("editDeck");
  EXPECT_EQ(edits, 1);
  key(Qt::Key_Escape);
  EXPECT_TRUE(window->view() == nullptr || !window->view()->isVisible());
}

TEST_F(MenuTest, AnimatesItsHeightUnlessMotionIsReduced) {
  startAndWait();
  auto* const view = window->view();
  const auto show = [&](const QString& error) {
    MenuState state = menuModel->state();
    state.listenerError = error;
    menuModel->setState(state);
    QTest::qWait(30);
    return view->height();
  };
  QTest::qWait(250);
  const int usual = view->height();
  const int growing = show("an error");
  ASSERT_TRUE(turnUntil([&] { return view->height() > growing; }));
  QTest::qWait(250);
  const int grown = view->height();
  EXPECT_GT(grown, usual);
  window->setAppearance({.reducedMotion = true});
  EXPECT_EQ(show({}), usual);
  EXPECT_EQ(show("an error"), grown);
}

TEST_F(MenuTest, ReleasesItsEngineAfterBeingClosed) {
  startAndWait();
  window->toggle(std::nullopt);
  QTest::qWait(50);
  ASSERT_NE(window->view(), nullptr) << "kept to reopen quickly";
  window->toggle(std::nullopt);
  QTest::qWait(400);
  ASSERT_NE(window->view(), nullptr) << "reopened in time";
  window->toggle(std::nullopt);
  ASSERT_TRUE(turnUntil([&] { return window->view() == nullptr; }));
  window->toggle(std::nullopt);
  ASSERT_NE(window->view(), nullptr);
  EXPECT_TRUE(showsStatus("Ready for iPhone"));
}

TEST_F(MenuTest, IsAnOrdinaryWindowWithoutATray) {
  startAndWait();
  window->show();
  auto* const view = window->view();
  EXPECT_EQ(view->title(), "Glintboard Agent");
  EXPECT_EQ(view->flags() & Qt::WindowType_Mask, Qt::Window);
  QWindow other;
  other.show();
  other.requestActivate();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  EXPECT_TRUE(view->isVisible());
  window->show();
  EXPECT_EQ(window->view(), view);
  EXPECT_TRUE(view->isVisible());
}

}  // namespace
}  // namespace glintboard
