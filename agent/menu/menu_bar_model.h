// SPDX-License-Identifier: MIT
// The menu for QML.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QList>
#include <QObject>
#include <QStringList>
#include <functional>
#include <memory>

#include "agent/menu/menu_commands.h"
#include "agent/menu/menu_content.h"

namespace glintboard {

// Presents the agent's state as the menu's, and runs the commands that are pressed. Main thread.
class MenuBarModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("The agent makes it.")
  Q_PROPERTY(QString title READ title CONSTANT)
  Q_PROPERTY(glintboard::Menu::Section section READ section NOTIFY changed)
  Q_PROPERTY(QString pairingStatusText READ pairingStatusText NOTIFY changed)
  Q_PROPERTY(QString pairingQRString READ pairingQRString NOTIFY changed)
  Q_PROPERTY(QString currentPIN READ currentPIN NOTIFY changed)
  // The PIN in two halves, for the eye.
  Q_PROPERTY(QStringList pinGroups READ pinGroups NOTIFY changed)
  Q_PROPERTY(QString hint READ hint NOTIFY changed)
  Q_PROPERTY(QString statusText READ statusText NOTIFY changed)
  Q_PROPERTY(QColor statusColor READ statusColor NOTIFY changed)
  Q_PROPERTY(QString listenerError READ listenerError NOTIFY changed)
  Q_PROPERTY(bool isPaired READ isPaired NOTIFY changed)
  // The buttons that are shown, as numbers of Menu.Command.
  Q_PROPERTY(QList<int> commands READ commands NOTIFY changed)
  Q_PROPERTY(bool isBusy READ isBusy NOTIFY changed)

 public:
  // Follows `viewModel`, which must outlive this and the commands that were started.
  MenuBarModel(AgentViewModel& viewModel, MenuActions actions);
  // Shows what `setState` is given, and passes the pressed commands to `press`.
  explicit MenuBarModel(std::function<void(MenuCommand)> press) : press_(std::move(press)) {}

  const MenuState& state() const { return state_; }
  // Notifies when something has changed.
  void setState(MenuState state);

  static QString title() { return MenuContent::title(); }
  Menu::Section section() const { return state_.section; }
  QString pairingStatusText() const { return state_.pairingStatusText; }
  QString pairingQRString() const { return state_.pairingQRString; }
  QString currentPIN() const { return state_.currentPIN; }
  QStringList pinGroups() const;
  QString hint() const { return state_.hint; }
  QString statusText() const { return MenuContent::statusText(state_.status); }
  QColor statusColor() const;
  QString listenerError() const { return state_.listenerError; }
  bool isPaired() const { return state_.isPaired; }
  QList<int> commands() const;
  bool isBusy() const { return state_.isBusy; }

  Q_INVOKABLE static QString buttonText(glintboard::Menu::Command command) {
    return MenuContent::buttonText(command);
  }
  // Starts the button's command; returns at once.
  Q_INVOKABLE void press(glintboard::Menu::Command command) { press_(command); }

 Q_SIGNALS:
  void changed();

 private:
  std::unique_ptr<MenuCommands> commands_;  // none where a state is set
  std::function<void(MenuCommand)> press_;
  MenuState state_;
};

}  // namespace glintboard
