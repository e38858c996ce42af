#include "agent/shell/desktop_shell.h"

#include "agent/shell/menu_content.h"
#include "agent/shell/tray_icon.h"
#include "platform/identity.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;

// How long a tray may take to show the item before the menu opens without it.
constexpr auto trayPatience = 3s;

}  // namespace

DesktopShell::DesktopShell(AgentViewModel& viewModel, MenuPresenter& menu)
    : viewModel_(viewModel),
      menu_(menu),
      session_([this](DesktopAppearance) { Q_EMIT toldAppearance(); }) {
  connect(this, &DesktopShell::toldAppearance, this, &DesktopShell::appearanceChanged,
          Qt::QueuedConnection);
  connect(this, &DesktopShell::toldActivation, this, &DesktopShell::activated,
          Qt::QueuedConnection);
  connect(
      this, &DesktopShell::toldPresence, this, [this](bool inTray) { inTray_ = inTray; },
      Qt::QueuedConnection);
  session_.showTrayItem({tr("Glintboard Agent").toStdString(),
                         std::string(agentIdentifier) + "-symbolic", trayImages()},
                        {[this](int x, int y) { Q_EMIT toldActivation(x, y); },
                         [this](bool shown) { Q_EMIT toldPresence(shown); }});
  for (const auto changed :
       {&AgentViewModel::pairedDevicesChanged, &AgentViewModel::isListenerRunningChanged,
        &AgentViewModel::listenerErrorChanged, &AgentViewModel::hasConnectedPhoneChanged}) {
    connect(&viewModel, changed, this, &DesktopShell::updateToolTip);
  }
  updateToolTip();
  trayDeadline_.setSingleShot(true);
  trayDeadline_.callOnTimeout(this, [this] {
    if (!inTray_) {
      menu_.show();
    }
  });
  trayDeadline_.start(trayPatience);
}

void DesktopShell::updateToolTip() {
  session_.setTrayToolTip(MenuContent::statusText(viewModel_).toStdString());
}

void DesktopShell::activated(int x, int y) {
  menu_.toggle(x == 0 && y == 0 ? std::nullopt : std::optional(QPoint(x, y)));
}

}  // namespace glintboard
