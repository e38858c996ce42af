#include "agent/shell/desktop_shell.h"

#include <QGuiApplication>
#include <QIcon>
#include <QPixmap>
#include <QSystemTrayIcon>

#include "agent/shell/menu_content.h"
#include "agent/shell/tray_icon.h"
#include "platform/identity.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;

// How long a tray may take to show the item before the menu opens without it.
constexpr auto trayPatience = 2s;

QString title() {
  return QObject::tr("Glintboard Agent");
}

}  // namespace

DesktopShell::DesktopShell(AgentViewModel& viewModel, MenuPresenter& menu)
    : viewModel_(viewModel), menu_(menu), session_([this](DesktopAppearance) {
        QMetaObject::invokeMethod(this, &DesktopShell::appearanceChanged, Qt::QueuedConnection);
      }) {
  session_.showTrayItem(
      {title().toStdString(), std::string(agentIdentifier) + "-symbolic", trayImages()},
      {[this](int x, int y) {
         QMetaObject::invokeMethod(this, [this, x, y] { activated(x, y); }, Qt::QueuedConnection);
       },
       [this](TrayPresence presence) {
         QMetaObject::invokeMethod(
             this, [this, presence] { presenceChanged(presence); }, Qt::QueuedConnection);
       }});
  for (const auto changed :
       {&AgentViewModel::pairedDevicesChanged, &AgentViewModel::isListenerRunningChanged,
        &AgentViewModel::listenerErrorChanged, &AgentViewModel::hasConnectedPhoneChanged}) {
    connect(&viewModel, changed, this, &DesktopShell::updateToolTip);
  }
  updateToolTip();
  trayDeadline_.setSingleShot(true);
  trayDeadline_.callOnTimeout(this, &DesktopShell::openWithoutTray);
  trayDeadline_.start(trayPatience);
}

DesktopShell::~DesktopShell() = default;

void DesktopShell::presenceChanged(TrayPresence presence) {
  presence_ = presence;
  if (presence == TrayPresence::shown) {
    legacyItem_.reset();
  } else if (presence == TrayPresence::absent) {
    joinLegacyTray();
  }
}

// Qt joins a tray that comes later by itself. It would ask the session bus too, and wait for one
// that hangs: but then the presence is not known.
void DesktopShell::joinLegacyTray() {
  if (legacyItem_ || QGuiApplication::platformName() != QLatin1String("xcb")) {
    return;
  }
  QIcon icon;
  for (const QImage& image : trayImages()) {
    icon.addPixmap(QPixmap::fromImage(image));
  }
  legacyItem_ = std::make_unique<QSystemTrayIcon>(icon);
  connect(legacyItem_.get(), &QSystemTrayIcon::activated, this, [this] {
    const auto place = legacyItem_->geometry().center();
    activated(place.x(), place.y());
  });
  updateToolTip();
  legacyItem_->show();
}

void DesktopShell::openWithoutTray() {
  const bool shown =
      presence_ == TrayPresence::shown || (legacyItem_ && QSystemTrayIcon::isSystemTrayAvailable());
  if (!shown) {
    menu_.show();
  }
}

void DesktopShell::updateToolTip() {
  const auto status = MenuContent::statusText(viewModel_);
  session_.setTrayToolTip(status.toStdString());
  if (legacyItem_) {
    legacyItem_->setToolTip(title() + QLatin1Char('\n') + status);
  }
}

void DesktopShell::activated(int x, int y) {
  menu_.toggle(x == 0 && y == 0 ? std::nullopt : std::optional(QPoint(x, y)));
}

}  // namespace glintboard
