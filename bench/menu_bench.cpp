// SPDX-License-Identifier: MIT
// Measures how long the menu takes to open and how much memory it uses. Needs a display.
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QTest>
#include <cstdio>

#include "agent/menu/menu_window.h"

namespace {

using namespace glintboard;

double residentMegabytes() {
  QFile status(QStringLiteral("/proc/self/status"));
  if (status.open(QFile::ReadOnly)) {
    for (const QByteArray& line : status.readAll().split('\n')) {
      if (line.startsWith("VmRSS:")) {
        return line.mid(6).trimmed().split(' ').first().toDouble() / 1024;
      }
    }
  }
  return 0;
}

// Milliseconds until the first frame is shown; -1 on failure.
double timeToOpen(MenuWindow& menu) {
  QElapsedTimer timer;
  timer.start();
  menu.toggle(std::nullopt);
  double taken = -1;
  if (menu.view() != nullptr) {
    const auto connection = QObject::connect(
        menu.view(), &QQuickWindow::frameSwapped, menu.view(),
        [&] { taken = taken < 0 ? static_cast<double>(timer.nsecsElapsed()) / 1e6 : taken; });
    if (!QTest::qWaitFor([&] { return taken >= 0; })) {
      std::puts("no frame is drawn");
    }
    QObject::disconnect(connection);
  }
  return taken;
}

void close(MenuWindow& menu) {
  if (menu.view() != nullptr && menu.view()->isVisible()) {
    menu.toggle(std::nullopt);
  }
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QUICK_BACKEND", "software");
  const QGuiApplication application(argc, argv);
  MenuBarModel model([](MenuCommand) {});
  MenuState state;
  state.pairingQRString = QStringLiteral("glintboard://pair?v=1&name=Studio&code=0123456789abcdef");
  state.currentPIN = QStringLiteral("482913");
  state.status = ConnectionStatus::Ready;
  model.setState(state);
  MenuWindow menu(model, {}, std::chrono::milliseconds(500));
  std::printf("before            %6.1f MB\n", residentMegabytes());
  std::printf("open cold         %6.0f ms\n", timeToOpen(menu));
  std::printf("while open        %6.1f MB\n", residentMegabytes());
  close(menu);
  QTest::qWait(100);
  std::printf("open again        %6.0f ms\n", timeToOpen(menu));
  close(menu);
  if (!QTest::qWaitFor([&] { return menu.view() == nullptr; })) {
    std::puts("the engine is kept");
  }
  std::printf("engine released   %6.1f MB\n", residentMegabytes());
  std::printf("open a new engine %6.0f ms\n", timeToOpen(menu));
  close(menu);
  return 0;
}
