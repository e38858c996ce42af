#include "agent/shell/menu_bar_controller.h"

#include <QTimer>

#include "platform/log.h"
#include "platform/spawn.h"

namespace glintboard {

MenuBarController::MenuBarController(AgentViewModel& viewModel, MenuActions actions)
    : viewModel_(viewModel),
      actions_(std::move(actions)),
      model_([this](MenuCommand command) { press(command); }) {
  for (const auto changed :
       {&AgentViewModel::currentPINChanged, &AgentViewModel::pairingQRStringChanged,
        &AgentViewModel::pairingStatusTextChanged, &AgentViewModel::pairedDevicesChanged,
        &AgentViewModel::isLockedOutChanged, &AgentViewModel::isListenerRunningChanged,
        &AgentViewModel::listenerErrorChanged, &AgentViewModel::hasConnectedPhoneChanged,
        &AgentViewModel::shortcutCoachMessageChanged,
        &AgentViewModel::isShowingPairingCodeChanged}) {
    connect(&viewModel, changed, this, &MenuBarController::scheduleUpdate);
  }
  update();
}

void MenuBarController::press(MenuCommand command) {
  switch (command) {
    case MenuCommand::dismissHint:
      return perform(viewModel_.dismissShortcutCoachMessage());
    case MenuCommand::restartAgent:
      return perform(viewModel_.restartListener());
    case MenuCommand::editDeck:
      return actions_.editDeck();
    case MenuCommand::showPairingCode:
      return perform(viewModel_.showPairingCode());
    case MenuCommand::hidePairingCode:
      return perform(viewModel_.hidePairingCode());
    case MenuCommand::unpair:
      return perform(viewModel_.unpair());
    case MenuCommand::quit:
      return actions_.quit();
  }
}

// Several fields often change in one turn, and fit together only at its end.
void MenuBarController::scheduleUpdate() {
  if (!updateScheduled_) {
    updateScheduled_ = true;
    QTimer::singleShot(0, this, &MenuBarController::update);
  }
}

void MenuBarController::update() {
  updateScheduled_ = false;
  model_.setState({MenuContent::pairingSection(viewModel_), viewModel_.pairingStatusText(),
                   viewModel_.pairingQRString(), viewModel_.currentPIN(),
                   viewModel_.shortcutCoachMessage(), MenuContent::status(viewModel_),
                   MenuContent::statusText(viewModel_), viewModel_.listenerError(),
                   viewModel_.isPaired(), viewModel_.isShowingPairingCode(),
                   commandsUnderWay_ != 0});
}

void MenuBarController::perform(Awaitable<> operation) {
  ++commandsUnderWay_;
  scheduleUpdate();
  spawn(viewModel_.executor(), performed(this, std::move(operation)), "menu");
}

Awaitable<> MenuBarController::performed(QPointer<MenuBarController> controller,
                                         Awaitable<> operation) {
  try {
    co_await std::move(operation);
  } catch (const std::exception& error) {
    log::warning("menu: ", error.what());
  }
  if (controller != nullptr) {
    --controller->commandsUnderWay_;
    controller->scheduleUpdate();
  }
}

}  // namespace glintboard
