// SPDX-License-Identifier: MIT
#include "agent/menu/menu_commands.h"

#include <QTimer>

#include "platform/log.h"
#include "platform/spawn.h"

namespace glintboard {

MenuCommands::MenuCommands(AgentViewModel& viewModel, MenuActions actions)
    : viewModel_(viewModel), actions_(std::move(actions)) {
  for (const auto field :
       {&AgentViewModel::currentPINChanged, &AgentViewModel::pairingQRStringChanged,
        &AgentViewModel::pairingStatusTextChanged, &AgentViewModel::pairedDevicesChanged,
        &AgentViewModel::isLockedOutChanged, &AgentViewModel::isListenerRunningChanged,
        &AgentViewModel::listenerErrorChanged, &AgentViewModel::hasConnectedPhoneChanged,
        &AgentViewModel::shortcutCoachMessageChanged,
        &AgentViewModel::isShowingPairingCodeChanged}) {
    connect(&viewModel, field, this, &MenuCommands::scheduleChange);
  }
}

void MenuCommands::press(MenuCommand command) {
  switch (command) {
    case MenuCommand::DismissHint:
      return perform(viewModel_.dismissShortcutCoachMessage());
    case MenuCommand::RestartAgent:
      return perform(viewModel_.restartListener());
    case MenuCommand::EditDeck:
      return actions_.editDeck();
    case MenuCommand::ShowPairingCode:
      return perform(viewModel_.showPairingCode());
    case MenuCommand::HidePairingCode:
      return perform(viewModel_.hidePairingCode());
    case MenuCommand::Unpair:
      return perform(viewModel_.unpair());
    case MenuCommand::Quit:
      return actions_.quit();
  }
}

void MenuCommands::scheduleChange() {
  if (!isScheduled_) {
    isScheduled_ = true;
    QTimer::singleShot(0, this, [this] {
      isScheduled_ = false;
      Q_EMIT changed();
    });
  }
}

void MenuCommands::perform(Awaitable<> operation) {
  ++underWay_;
  scheduleChange();
  spawn(viewModel_.executor(), performed(this, std::move(operation)), "menu");
}

Awaitable<> MenuCommands::performed(QPointer<MenuCommands> commands, Awaitable<> operation) {
  try {
    co_await std::move(operation);
  } catch (const std::exception& error) {
    log::warning("menu: ", error.what());
  }
  if (commands != nullptr) {
    --commands->underWay_;
    commands->scheduleChange();
  }
}

}  // namespace glintboard
