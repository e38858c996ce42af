// SPDX-License-Identifier: MIT
#include "agent/menu/desktop_shell.h"

#include <gtest/gtest.h>
#include <sys/un.h>

#include <QEventLoop>
#include <QGuiApplication>

#include "agent/menu/tray_icon.h"
#include "agent/pairing/keychain_paired_device_store.h"
#include "platform/main_thread.h"
#include "tests/platform/x_server.h"
#include "tests/support/session_bus.h"
#include "tests/support/status_notifier_watcher.h"
#include "tests/support/test_agent.h"
#include "tests/support/turn_until.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;
using test::StatusNotifierWatcher;
using test::turnUntil;

struct RecordingMenu : MenuPresenter {
  void toggle(std::optional<QPoint> anchor) override {
    ++toggled;
    lastAnchor = anchor;
    lastToken = qgetenv("XDG_ACTIVATION_TOKEN");
  }
  void show() override { ++shown; }

  int toggled = 0;
  int shown = 0;
  QByteArray lastToken;
  std::optional<QPoint> lastAnchor;
};

// The agent's shell on the Qt platform `platform`.
class Shell {
 public:
  explicit Shell(const char* platform, bool paired = false) {
    ::setenv("QT_QPA_PLATFORM", platform, 1);
    application_.emplace(count_, argv_);
    mainThread_.emplace();
    agent.emplace();
    if (paired) {
      KeychainPairedDeviceStore(agent->keychain).save({{randomUuid(), "Phone", {"token"}, {}}});
    }
    viewModel_.emplace(mainThread_->executor(), agent->environment(), agent->deckStore);
    shell_.emplace(*viewModel_, menu);
  }
  ~Shell() {
    shell_.reset();
    agent->run(viewModel_->services().listenerService().shutDown());
    // A refresh in progress must end before the view model, and its remains before the services.
    settle();
    viewModel_.reset();
    settle();
  }

  // Whether the menu opens after a start in the background.
  bool opensUnasked() {
    menu.shown = 0;
    shell_->startInBackground(0ms);
    return turnUntil([&] { return menu.shown == 1; }, 300ms);
  }

  RecordingMenu menu;

 private:
  static void settle() {
    turnUntil([] { return false; }, 20ms);
  }

  int count_ = 1;
  char name_[5] = "test";
  char* argv_[2] = {name_, nullptr};
  std::optional<QGuiApplication> application_;
  std::optional<MainThread> mainThread_;

 public:
  std::optional<test::TestAgent> agent;

 private:
  std::optional<AgentViewModel> viewModel_;
  std::optional<DesktopShell> shell_;
};

TEST(DesktopShellTest, RegistersWithTheTrayAndItsSuccessor) {
  const test::SessionBus bus;
  Shell shell("offscreen");
  EXPECT_TRUE(turnUntil([&] { return shell.opensUnasked(); })) << "without a tray";
  std::optional<StatusNotifierWatcher> tray(std::in_place);
  ASSERT_TRUE(turnUntil([&] { return !tray->item().empty(); }));
  const auto item = tray->item();
  EXPECT_EQ(tray->property("Title"), "(<'Glintboard Agent'>,)\n");
  EXPECT_EQ(tray->property("ItemIsMenu"), "(<false>,)\n");
  EXPECT_EQ(tray->property("IconName"), "(<''>,)\n") << "no icon is installed";
  EXPECT_EQ(tray->property("IconPixmap").substr(0, 22), "(<[(16, 16, [byte 0x34");
  EXPECT_TRUE(turnUntil(
      [&] { return tray->property("ToolTip").find("'Ready for iPhone'") != std::string::npos; }));
  EXPECT_FALSE(shell.opensUnasked());

  tray->call("org.kde.StatusNotifierItem.ProvideXdgActivationToken granted");
  tray->call("org.kde.StatusNotifierItem.Activate 30 40");
  EXPECT_TRUE(turnUntil([&] { return shell.menu.toggled == 1; }));
  EXPECT_EQ(shell.menu.lastAnchor, QPoint(30, 40));
  EXPECT_EQ(shell.menu.lastToken, "granted");
  tray->call("org.kde.StatusNotifierItem.ContextMenu 0 0");
  EXPECT_TRUE(turnUntil([&] { return shell.menu.toggled == 2; }));
  EXPECT_EQ(shell.menu.lastAnchor, std::nullopt);
  EXPECT_EQ(shell.menu.lastToken, "");

  tray.reset();
  EXPECT_TRUE(turnUntil([&] { return shell.opensUnasked(); }));
  tray.emplace();
  EXPECT_TRUE(turnUntil([&] { return tray->item() == item; }));
}

TEST(DesktopShellTest, RegistersWithATrayThatAnswersLate) {
  const test::SessionBus bus;
  const StatusNotifierWatcher tray(true);
  Shell shell("offscreen");
  ASSERT_TRUE(turnUntil([&] { return !tray.item().empty(); }));
  EXPECT_TRUE(turnUntil([&] { return shell.opensUnasked(); })) << "until the tray answers";
  tray.answer();
  EXPECT_TRUE(turnUntil([&] { return !shell.opensUnasked(); }));
}

TEST(DesktopShellTest, DoesNotOpenTheMenuWhenAPhoneIsPaired) {
  ::setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent", 1);
  Shell shell("offscreen", true);
  turnUntil([] { return false; }, 200ms);
  EXPECT_FALSE(shell.opensUnasked());
}

TEST(DesktopShellTest, HungBusDoesNotBlockTheEventLoop) {
  const test::TemporaryFolder folder;
  // Accepts connections and never answers.
  FileDescriptor silent(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  (folder / "bus").string().copy(address.sun_path, sizeof address.sun_path - 1);
  ASSERT_EQ(::bind(silent.get(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
  ASSERT_EQ(::listen(silent.get(), 5), 0);
  ::setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + (folder / "bus").string()).c_str(), 1);

  Shell shell("offscreen");
  auto last = std::chrono::steady_clock::now();
  auto longest = 0ms;
  turnUntil(
      [&] {
        const auto now = std::chrono::steady_clock::now();
        longest =
            std::max(longest, std::chrono::duration_cast<std::chrono::milliseconds>(now - last));
        last = now;
        return false;
      },
      3s);
  EXPECT_LT(longest, test::slowdown * 1s);
}

TEST(DesktopShellTest, UsesTheLegacyTrayWithoutABus) {
  if (test::outputOf("command -v trayer").empty()) {
    GTEST_SKIP() << "trayer is not installed; Debian 13 is the last to have it";
  }
  ::setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent", 1);
  const test::XServer server;
  Shell shell("xcb");
  std::optional<test::ChildProcess> tray;
  const auto clicked = [&](int times) {
    return turnUntil([&] {
      test::outputOf("xdotool mousemove 12 14 click 1 2>&1");
      return turnUntil([&] { return shell.menu.toggled >= times; }, test::slowdown * 1s);
    });
  };
  const std::vector<std::string> trayer{"trayer",      "--edge",  "top",      "--align", "left",
                                        "--widthtype", "request", "--height", "24"};
  tray.emplace(trayer);
  EXPECT_TRUE(clicked(1));
  ASSERT_TRUE(shell.menu.lastAnchor);
  EXPECT_LT(shell.menu.lastAnchor->x(), 40);
  EXPECT_NE(test::outputOf("import -window root -crop 26x26+0+0 txt:- | grep '(255,77,157)'"), "");

  tray.reset();
  tray.emplace(trayer);
  const int before = shell.menu.toggled;
  EXPECT_TRUE(clicked(before + 1)) << "a restarted tray";
}

TEST(TrayIconTest, IsVisibleOnLightAndDarkPanels) {
  for (const QImage& image : trayImages()) {
    int light = 0;
    int dark = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        const QColor pixel = image.pixelColor(x, y);
        light += pixel.alpha() > 150 && pixel.lightness() > 200 ? 1 : 0;
        dark += pixel.alpha() > 150 && pixel.lightness() < 80 ? 1 : 0;
      }
    }
    const int area = image.width() * image.height();
    EXPECT_GT(light, area / 6) << image.width();
    EXPECT_GT(dark, area / 14) << image.width();
  }
}

}  // namespace
}  // namespace glintboard
