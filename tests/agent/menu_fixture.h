// SPDX-License-Identifier: MIT
// The real menu over a real view model and listener, drawn in memory.
#pragma once

#include <gtest/gtest.h>

#include <QTest>

#include "agent/menu/menu_bar_model.h"
#include "agent/menu/menu_window.h"
#include "platform/main_thread.h"
#include "protocol/message_factory.h"
#include "tests/support/child_process.h"
#include "tests/support/test_agent.h"
#include "tests/support/turn_until.h"
#include "tools/phone/agent_session.h"

namespace glintboard::test {

// The content of the QR code in a picture, as zbar reads it.
inline std::string codeIn(const QImage& picture) {
  const TemporaryFolder folder;
  const std::string file = folder / "picture.png";
  picture.save(QString::fromStdString(file));
  return outputOf("zbarimg --quiet --raw -S*.enable=0 -Sqrcode.enable=1 " + file + " 2>/dev/null");
}

inline const QStringList unpairedButtons{"Edit Deck", "Quit"};
inline const QStringList pairedButtons{"Edit Deck", "Show Pairing Code\u2026", "Unpair iPhone",
                                       "Quit"};
inline const QStringList replacementButtons{"Edit Deck", "Hide Pairing Code", "Unpair iPhone",
                                            "Quit"};

class MenuTest : public testing::Test {
 protected:
  void start(const Appearance& appearance = {}) {
    viewModel = std::make_unique<AgentViewModel>(mainThread.executor(), agent.environment(),
                                                 agent.deckStore);
    menuModel = std::make_unique<MenuBarModel>(
        *viewModel, MenuActions{[this] { ++edits; }, [this] { ++quits; }});
    window = std::make_unique<MenuWindow>(*menuModel, appearance, std::chrono::milliseconds(200));
    window->toggle(std::nullopt);
    ASSERT_NE(window->view(), nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowActive(window->view()));
  }
  void startAndWait() {
    start();
    ASSERT_TRUE(showsStatus("Ready for iPhone"));
  }
  // With a phone that pairs. Returns its token.
  std::string startPaired() {
    startAndWait();
    auto token = pairOverTheWire(pin());
    EXPECT_TRUE(showsState("pairedDevice", pairedButtons));
    return token;
  }
  void TearDown() override {
    window.reset();
    agent.run(viewModel->services().listenerService().shutDown());
  }

  QQuickItem* item(const QString& name) {
    return window->view()->root().findChild<QQuickItem*>(name);
  }
  bool shows(const QString& name) { return item(name)->isVisible(); }
  QString text(const QString& name) { return item(name)->property("text").toString(); }
  bool showsStatus(const QString& status) {
    return turnUntil([&] { return text("status") == status; });
  }
  // Whether the menu shows only that pairing section and those buttons.
  bool showsState(const QString& section, const QStringList& buttons) {
    return turnUntil([&] {
      QStringList sections;
      for (const char* name : {"pairedDevice", "pairingPanel", "lockMessage"}) {
        if (shows(name)) {
          sections.append(name);
        }
      }
      return sections == QStringList{section} && visibleButtons() == buttons;
    });
  }
  QStringList visibleButtons() {
    QStringList texts;
    for (const char* name : {"dismiss", "restart", "editDeck", "pairingCode", "unpair", "quit"}) {
      if (shows(name)) {
        texts.append(text(name));
      }
    }
    return texts;
  }

  void click(const QString& name) {
    QTest::qWait(250);  // until animations have ended
    auto* const button = item(name);
    const QPointF middle(button->width() / 2, button->height() / 2);
    QTest::mouseClick(window->view(), Qt::LeftButton, {}, button->mapToScene(middle).toPoint());
  }
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(window->view(), key, modifiers);
  }

  phone::AgentSession phone(const std::optional<std::string>& token = std::nullopt) {
    return {phone::PhoneConnection({"127.0.0.1", agent.port}, token, soon()),
            slowdown * std::chrono::seconds(5)};
  }
  // The token, or an empty text.
  std::string pairOverTheWire(const std::string& pin) {
    const auto reply = phone().ask(MessageFactory::pairRequest(
        PairingMethod::pin, pin, "Ann's iPhone", randomUuid(), randomUuid()));
    const auto paired = WireCodec::decode<PairOKPayload>(reply.text);
    return paired ? paired->payload.token : "";
  }
  // Runs an operation of the view model and waits for it.
  void run(Awaitable<> operation) {
    bool done = false;
    asio::co_spawn(mainThread.executor(), std::move(operation),
                   [&done](const std::exception_ptr& failure) { done = !failure; });
    EXPECT_TRUE(turnUntil([&] { return done; }));
  }
  void failPairing() {
    for (int i = 0; i < 5; ++i) {
      pairOverTheWire("wrong");
    }
  }
  std::string pin() { return text("pin").toStdString(); }

  MainThread mainThread;
  TestAgent agent;
  int edits = 0;
  int quits = 0;
  std::unique_ptr<AgentViewModel> viewModel;
  std::unique_ptr<MenuBarModel> menuModel;
  std::unique_ptr<MenuWindow> window;
};

}  // namespace glintboard::test
