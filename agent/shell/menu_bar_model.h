// What the menu's view shows and offers.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QObject>
#include <QStringList>
#include <functional>

#include "agent/shell/menu_content.h"

namespace glintboard {

// One consistent picture of the menu. Optional texts are null when absent.
struct MenuState {
  PairingSection section = PairingSection::code;
  QString pairingStatusText;
  QString pairingQRString;
  QString currentPIN;
  QString hint;
  ConnectionStatus status = ConnectionStatus::starting;
  QString statusText;
  QString listenerError;
  bool isPaired = false;
  bool isShowingPairingCode = false;
  bool isBusy = false;  // a command has not done its work yet

  bool operator==(const MenuState&) const = default;
};

// The menu's state for QML; what is pressed goes to one handler. Main thread.
class MenuBarModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("The agent makes it.")
  Q_PROPERTY(Section section READ section NOTIFY changed)
  Q_PROPERTY(QString pairingStatusText READ pairingStatusText NOTIFY changed)
  Q_PROPERTY(QString pairingQRString READ pairingQRString NOTIFY changed)
  Q_PROPERTY(QString currentPIN READ currentPIN NOTIFY changed)
  // The PIN in two halves, for the eye.
  Q_PROPERTY(QStringList pinGroups READ pinGroups NOTIFY changed)
  Q_PROPERTY(bool hasHint READ hasHint NOTIFY changed)
  Q_PROPERTY(QString hint READ hint NOTIFY changed)
  Q_PROPERTY(QString statusText READ statusText NOTIFY changed)
  Q_PROPERTY(QColor statusColor READ statusColor NOTIFY changed)
  Q_PROPERTY(bool hasListenerError READ hasListenerError NOTIFY changed)
  Q_PROPERTY(QString listenerError READ listenerError NOTIFY changed)
  Q_PROPERTY(bool isPaired READ isPaired NOTIFY changed)
  Q_PROPERTY(bool isShowingPairingCode READ isShowingPairingCode NOTIFY changed)
  Q_PROPERTY(bool isBusy READ isBusy NOTIFY changed)

 public:
  // PairingSection's values, in its order.
  enum Section { PairedDevice, Code, LockedOut };
  Q_ENUM(Section)

  explicit MenuBarModel(std::function<void(MenuCommand)> press) : press_(std::move(press)) {}

  const MenuState& state() const { return state_; }
  // Notifies when something has changed.
  void setState(MenuState state);

  Section section() const { return static_cast<Section>(state_.section); }
  QString pairingStatusText() const { return state_.pairingStatusText; }
  QString pairingQRString() const { return state_.pairingQRString; }
  QString currentPIN() const { return state_.currentPIN; }
  QStringList pinGroups() const;
  bool hasHint() const { return !state_.hint.isNull(); }
  QString hint() const { return state_.hint; }
  QString statusText() const { return state_.statusText; }
  QColor statusColor() const;
  bool hasListenerError() const { return !state_.listenerError.isNull(); }
  QString listenerError() const { return state_.listenerError; }
  bool isPaired() const { return state_.isPaired; }
  bool isShowingPairingCode() const { return state_.isShowingPairingCode; }
  bool isBusy() const { return state_.isBusy; }

  // Each button's work; they return at once.
  Q_INVOKABLE void dismissHint() { press_(MenuCommand::dismissHint); }
  Q_INVOKABLE void restartAgent() { press_(MenuCommand::restartAgent); }
  Q_INVOKABLE void editDeck() { press_(MenuCommand::editDeck); }
  Q_INVOKABLE void showPairingCode() { press_(MenuCommand::showPairingCode); }
  Q_INVOKABLE void hidePairingCode() { press_(MenuCommand::hidePairingCode); }
  Q_INVOKABLE void unpair() { press_(MenuCommand::unpair); }
  Q_INVOKABLE void quit() { press_(MenuCommand::quit); }

 Q_SIGNALS:
  void changed();

 private:
  std::function<void(MenuCommand)> press_;
  MenuState state_;
};

}  // namespace glintboard
