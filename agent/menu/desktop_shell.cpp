// SPDX-License-Identifier: MIT
#include "agent/menu/desktop_shell.h"

#include <QTimer>

#include "agent/menu/menu_content.h"
#include "agent/menu/tray_icon.h"
#include "platform/identity.h"

namespace glintboard {

DesktopShell::DesktopShell(AgentViewModel& viewModel, MenuPresenter& menu)
    : viewModel_(viewModel),
      menu_(menu),
      session_([this](DesktopAppearance) { Q_EMIT toldAppearance(); }) {
  connect(this, &DesktopShell::toldAppearance, this, &DesktopShell::appearanceChanged,
          Qt::QueuedConnection);
  connect(this, &DesktopShell::toldActivation, this, &DesktopShell::activated,
          Qt::QueuedConnection);
  connect(
      this, &DesktopShell::toldTray, this,
      [this](bool shown) {
        if (!shown && !viewModel_.isPaired()) {
          menu_.show();
        }
      },
      Qt::QueuedConnection);
  session_.showTrayItem({MenuContent::title().toStdString(),
                         std::string(agentIdentifier) + "-symbolic", trayImages()},
                        [this](const TrayActivation& activation) {
                          Q_EMIT toldActivation(activation.x, activation.y,
                                                QString::fromStdString(activation.token));
                        });
  for (const auto changed :
       {&AgentViewModel::pairedDevicesChanged, &AgentViewModel::isListenerRunningChanged,
        &AgentViewModel::listenerErrorChanged, &AgentViewModel::hasConnectedPhoneChanged}) {
    connect(&viewModel, changed, this, &DesktopShell::updateToolTip);
  }
  updateToolTip();
}

void DesktopShell::updateToolTip() {
  session_.setTrayToolTip(
      MenuContent::statusText(MenuContent::state(viewModel_).status).toStdString());
}

void DesktopShell::startInBackground(std::chrono::milliseconds timeout) {
  QTimer::singleShot(timeout, this, [this] {
    session_.askForTray([this](bool shown) { Q_EMIT toldTray(shown); });
  });
}

void DesktopShell::activated(int x, int y, const QString& token) {
  // Where Qt looks for it when a window asks for the focus, on Wayland.
  constexpr auto variable = "XDG_ACTIVATION_TOKEN";
  const bool granted = !token.isEmpty();
  if (granted) {
    qputenv(variable, token.toUtf8());
  }
  menu_.toggle(x == 0 && y == 0 ? std::nullopt : std::optional(QPoint(x, y)));
  if (granted) {
    qunsetenv(variable);
  }
}

}  // namespace glintboard
