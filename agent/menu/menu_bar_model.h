// SPDX-License-Identifier: MIT
// What the menu's view shows and offers.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QObject>
#include <QStringList>
#include <functional>

#include "agent/menu/menu_content.h"

namespace glintboard {

// The menu's state for QML; what is pressed goes to one handler. Main thread.
class MenuBarModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("The agent makes it.")
  Q_PROPERTY(QString title READ title CONSTANT)
  Q_PROPERTY(Section section READ section NOTIFY changed)
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
  // The buttons that are there now: a bit for each, of the number that Command gives it.
  Q_PROPERTY(int commands READ commands NOTIFY changed)
  Q_PROPERTY(bool isBusy READ isBusy NOTIFY changed)

 public:
  // PairingSection's values, in its order.
  enum Section { PairedDevice, Code, LockedOut };
  Q_ENUM(Section)
  // MenuCommand's values, in its order.
  enum Command {
    DismissHint,
    RestartAgent,
    EditDeck,
    ShowPairingCode,
    HidePairingCode,
    Unpair,
    Quit,
  };
  Q_ENUM(Command)

  explicit MenuBarModel(std::function<void(MenuCommand)> press) : press_(std::move(press)) {}

  const MenuState& state() const { return state_; }
  // Notifies when something has changed.
  void setState(MenuState state);

  static QString title() { return MenuContent::title(); }
  Section section() const { return static_cast<Section>(state_.section); }
  QString pairingStatusText() const { return state_.pairingStatusText; }
  QString pairingQRString() const { return state_.pairingQRString; }
  QString currentPIN() const { return state_.currentPIN; }
  QStringList pinGroups() const;
  QString hint() const { return state_.hint; }
  QString statusText() const { return MenuContent::statusText(state_.status); }
  QColor statusColor() const;
  QString listenerError() const { return state_.listenerError; }
  bool isPaired() const { return state_.isPaired; }
  int commands() const;
  bool isBusy() const { return state_.isBusy; }

  Q_INVOKABLE static QString buttonText(Command command);
  // A button's work; returns at once.
  Q_INVOKABLE void press(Command command) { press_(static_cast<MenuCommand>(command)); }

 Q_SIGNALS:
  void changed();

 private:
  std::function<void(MenuCommand)> press_;
  MenuState state_;
};

}  // namespace glintboard
