// SPDX-License-Identifier: MIT
#include "agent/menu/agent_view_model.h"

#include <QStringList>

#include "agent/language/error_text.h"
#include "platform/log.h"
#include "platform/spawn.h"
#include "protocol/pairing_qr_payload.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;

// The interval between checks of a failed listener.
constexpr auto recoveryCheckInterval = 1s;

QString text(const std::string& utf8) {
  return QString::fromStdString(utf8);
}

// Null when absent.
QString text(const std::optional<std::string>& utf8) {
  return utf8 ? text(*utf8) : QString();
}

}  // namespace

AgentViewModel::AgentViewModel(asio::any_io_executor mainThread, AgentEnvironment environment,
                               DeckStore& deckStore)
    : mainThread_(std::move(mainThread)),
      deckStore_(deckStore),
      services_(std::move(environment), deckStore) {
  connect(this, &AgentViewModel::pairedDevicesChanged, this,
          &AgentViewModel::pairingStatusTextChanged);
  connect(this, &AgentViewModel::isLockedOutChanged, this,
          &AgentViewModel::pairingStatusTextChanged);
  recoveryCheck_.setSingleShot(true);
  recoveryCheck_.setInterval(recoveryCheckInterval);
  recoveryCheck_.callOnTimeout(this, &AgentViewModel::refreshSoon);
  followServices();
  spawn(mainThread_, startListener(), "starting the listener");
}

void AgentViewModel::followServices() {
  const auto changed = [weak = QPointer<AgentViewModel>(this), mainThread = mainThread_] {
    asio::post(mainThread, [weak] {
      if (weak) {
        weak->refreshConnectedPhone();
        weak->refreshSoon();
      }
    });
  };
  services_.pairingService().whenChanged(changed);
  services_.listenerService().whenChanged(changed);
  services_.environment().nameChanges.add(changed);
}

bool AgentViewModel::refreshConnectedPhone() {
  set(hasConnectedPhone_, services_.listenerService().hasConnectedPhone(),
      &AgentViewModel::hasConnectedPhoneChanged);
  return hasConnectedPhone_;
}

QString AgentViewModel::pairingStatusText() const {
  if (!pairedDevices_.empty()) {
    QStringList names;
    for (const auto& device : pairedDevices_) {
      names.append(text(device.name));
    }
    return names.join(QStringLiteral(", "));
  }
  return isLockedOut_ ? tr("Pairing locked \u2014 too many failed attempts")
                      : tr("Waiting for iPhone to scan QR");
}

void AgentViewModel::refreshSoon() {
  if (!std::exchange(isRefreshDue_, true)) {
    spawn(mainThread_, refreshOnce(this), "refresh");
  }
}

Awaitable<> AgentViewModel::refreshOnce(QPointer<AgentViewModel> viewModel) {
  if (viewModel) {
    viewModel->isRefreshDue_ = false;
    co_await viewModel->refresh();
  }
}

Awaitable<> AgentViewModel::refresh() {
  const QPointer<AgentViewModel> self(this);  // may be destroyed while a service answers
  const int commands = pairingCommands_;
  const PairingState pairing = co_await services_.pairingService().state();
  if (!self) {
    co_return;
  }
  if (commands == pairingCommands_) {
    // Else the state may be older than the command, which refreshes after itself.
    setPairing(pairing);
  }
  const ListenerState listener = co_await services_.listenerService().state();
  if (!self) {
    co_return;
  }
  setListener(listener);
  if (hasListenerFailed()) {
    co_await attemptAutomaticRecoveryIfNeeded();
  }
}

void AgentViewModel::setPairing(const PairingState& pairing) {
  set(currentPIN_, text(pairing.currentPIN), &AgentViewModel::currentPINChanged);
  set(pairedDevices_, pairing.pairedDevices, &AgentViewModel::pairedDevicesChanged);
  set(isLockedOut_, pairing.isLockedOut, &AgentViewModel::isLockedOutChanged);
  if (pairedDevices_.empty() || !pairing.replacementPairingEnabled) {
    set(isShowingPairingCode_, false, &AgentViewModel::isShowingPairingCodeChanged);
  }
  const std::string name = services_.environment().localizedName().value_or("Glintboard Mac");
  set(bonjourServiceName_, text(name), &AgentViewModel::bonjourServiceNameChanged);
  const PairingQRPayload payload{name, pairing.currentPairingCode};
  set(pairingQRString_, text(payload.encodedURL().value_or("")),
      &AgentViewModel::pairingQRStringChanged);
}

void AgentViewModel::setListener(const ListenerState& listener) {
  set(isListenerRunning_, listener.isRunning, &AgentViewModel::isListenerRunningChanged);
  set(listenerError_, text(listener.lastError), &AgentViewModel::listenerErrorChanged);
  refreshConnectedPhone();
  set(shortcutCoachMessage_, text(listener.shortcutCoachMessage),
      &AgentViewModel::shortcutCoachMessageChanged);
  if (!hasListenerFailed()) {
    recoveryCheck_.stop();
  } else if (!recoveryCheck_.isActive()) {
    recoveryCheck_.start();
  }
}

void AgentViewModel::setListenerError(const std::exception& error) {
  set(listenerError_, errorText(error), &AgentViewModel::listenerErrorChanged);
}

Awaitable<> AgentViewModel::startListener() {
  try {
    co_await services_.listenerService().start();
  } catch (const ListenerServiceError& error) {
    if (error.code == ListenerServiceError::Code::alreadyRunning) {
      set(listenerError_, tr("Listener is already running."),
          &AgentViewModel::listenerErrorChanged);
    } else {
      setListenerError(error);
    }
  } catch (const std::exception& error) {
    setListenerError(error);
  }
  co_await refresh();
}

Awaitable<> AgentViewModel::restart() {
  try {
    co_await services_.listenerService().restart();
  } catch (const std::exception& error) {
    setListenerError(error);
  }
}

Awaitable<> AgentViewModel::restartListener() {
  co_await restart();
  co_await refresh();
}

Awaitable<> AgentViewModel::attemptAutomaticRecoveryIfNeeded() {
  const auto now = std::chrono::steady_clock::now();
  if (lastRecoveryAttempt_ && now - *lastRecoveryAttempt_ < recoveryCooldown_) {
    co_return;
  }
  lastRecoveryAttempt_ = now;
  const QPointer<AgentViewModel> self(this);
  try {
    co_await services_.listenerService().restart();
    const ListenerState listener = co_await services_.listenerService().state();
    if (self) {
      setListener(listener);
    }
  } catch (const std::exception& error) {
    if (self) {
      setListenerError(error);
    }
  }
}

Awaitable<> AgentViewModel::showPairingCode() {
  co_await services_.pairingService().beginReplacementPairing();
  ++pairingCommands_;
  set(isShowingPairingCode_, true, &AgentViewModel::isShowingPairingCodeChanged);
  co_await refresh();
}

Awaitable<> AgentViewModel::hidePairingCode() {
  co_await services_.pairingService().endReplacementPairing();
  ++pairingCommands_;
  set(isShowingPairingCode_, false, &AgentViewModel::isShowingPairingCodeChanged);
  co_await refresh();
}

Awaitable<> AgentViewModel::unpair() {
  try {
    co_await services_.pairingService().unpairAll();
  } catch (const std::exception& error) {
    // The pairing service has removed the phone from memory.
    log::warning("unpairing: ", error.what());
  }
  ++pairingCommands_;
  set(isShowingPairingCode_, false, &AgentViewModel::isShowingPairingCodeChanged);
  co_await refresh();
}

Awaitable<> AgentViewModel::dismissShortcutCoachMessage() {
  co_await services_.listenerService().dismissShortcutCoachMessage();
  co_await refresh();
}

template <class T>
void AgentViewModel::set(T& field, T value, void (AgentViewModel::*changed)()) {
  if (field == value) {
    return;
  }
  field = std::move(value);
  Q_EMIT(this->*changed)();
}

}  // namespace glintboard
