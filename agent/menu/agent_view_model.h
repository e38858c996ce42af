// SPDX-License-Identifier: MIT
// The services' state as the user interface shows it, and the user's commands.
#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>
#include <chrono>
#include <optional>
#include <vector>

#include "agent/decks/deck_store.h"
#include "agent/services/agent_services.h"
#include "protocol/paired_device.h"

namespace glintboard {

// A copy of the services' state, updated whenever they report a change. A field's signal is emitted
// only when its value changes. Optional texts are null when absent.
//
// Lives on the main thread; its coroutines run there and await the services.
class AgentViewModel : public QObject {
  Q_OBJECT

 public:
  // Creates the services, observes them and starts the listener. `mainThread` is the executor of
  // the thread that creates this; `deckStore` must outlive it.
  AgentViewModel(asio::any_io_executor mainThread, AgentEnvironment environment,
                 DeckStore& deckStore);

  QString currentPIN() const { return currentPIN_; }
  QString pairingQRString() const { return pairingQRString_; }
  QString bonjourServiceName() const { return bonjourServiceName_; }
  const std::vector<PairedDevice>& pairedDevices() const { return pairedDevices_; }
  bool isPaired() const { return !pairedDevices_.empty(); }
  bool isLockedOut() const { return isLockedOut_; }
  bool isListenerRunning() const { return isListenerRunning_; }
  QString listenerError() const { return listenerError_; }
  bool hasConnectedPhone() const { return hasConnectedPhone_; }
  QString shortcutCoachMessage() const { return shortcutCoachMessage_; }
  bool isShowingPairingCode() const { return isShowingPairingCode_; }
  // The names of the paired phones, else the state of the pairing.
  QString pairingStatusText() const;

  DeckStore& deckStore() { return deckStore_; }
  AgentServices& services() { return services_; }
  const asio::any_io_executor& executor() const { return mainThread_; }

  // Copies the services' state into the fields, and restarts a listener that has failed.
  Awaitable<> refresh();
  // Reads whether a phone is connected now, updates hasConnectedPhone and returns it.
  bool refreshConnectedPhone();
  Awaitable<> startListener();
  // The user's command to restart the listener.
  Awaitable<> restartListener();
  // Restarts the listener, at most once in five seconds.
  Awaitable<> attemptAutomaticRecoveryIfNeeded();
  // Creates and shows a new code, with which another phone can replace the paired one.
  Awaitable<> showPairingCode();
  Awaitable<> hidePairingCode();
  Awaitable<> unpair();
  Awaitable<> dismissShortcutCoachMessage();

 Q_SIGNALS:
  void currentPINChanged();
  void pairingQRStringChanged();
  void bonjourServiceNameChanged();
  void pairingStatusTextChanged();
  void pairedDevicesChanged();
  void isLockedOutChanged();
  void isListenerRunningChanged();
  void listenerErrorChanged();
  void hasConnectedPhoneChanged();
  void shortcutCoachMessageChanged();
  void isShowingPairingCodeChanged();

 private:
  template <class T>
  void set(T& field, T value, void (AgentViewModel::*changed)());
  // Schedules a refresh. Further calls before it starts have no effect.
  void refreshSoon();
  static Awaitable<> refreshOnce(QPointer<AgentViewModel> viewModel);
  void followServices();
  void setPairing(const PairingState& pairing);
  void setListener(const ListenerState& listener);
  void setListenerError(const std::exception& error);
  bool hasListenerFailed() const { return !isListenerRunning_ && !listenerError_.isNull(); }
  Awaitable<> restart();

  asio::any_io_executor mainThread_;
  DeckStore& deckStore_;
  AgentServices services_;

  QString currentPIN_;
  QString pairingQRString_;
  QString bonjourServiceName_;
  std::vector<PairedDevice> pairedDevices_;
  bool isLockedOut_ = false;
  bool isListenerRunning_ = false;
  QString listenerError_;
  bool hasConnectedPhone_ = false;
  QString shortcutCoachMessage_;
  bool isShowingPairingCode_ = false;
  int pairingCommands_ = 0;  // completed ones

  bool isRefreshDue_ = false;
  QTimer recoveryCheck_;  // runs while the listener has failed
  std::optional<std::chrono::steady_clock::time_point> lastRecoveryAttempt_;
  std::chrono::duration<double> recoveryCooldown_{5.0};
};

}  // namespace glintboard
