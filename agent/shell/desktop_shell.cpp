#include "agent/shell/desktop_shell.h"

#include "agent/shell/menu_content.h"
#include "agent/shell/tray_icon.h"
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
  session_.showTrayItem({MenuContent::title().toStdString(),
                         std::string(agentIdentifier) + "-symbolic", trayImages()},
                        [this](int x, int y) { Q_EMIT toldActivation(x, y); });
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

void DesktopShell::activated(int x, int y) {
  menu_.toggle(x == 0 && y == 0 ? std::nullopt : std::optional(QPoint(x, y)));
}

}  // namespace glintboard
