// SPDX-License-Identifier: MIT
#include "agent/menu/menu_bar_controller.h"

namespace glintboard {

MenuBarController::MenuBarController(AgentViewModel& viewModel, MenuActions actions)
    : viewModel_(viewModel),
      commands_(viewModel, std::move(actions)),
      model_([this](MenuCommand command) { commands_.press(command); }) {
  QObject::connect(&commands_, &MenuCommands::changed, &model_, [this] { update(); });
  update();
}

void MenuBarController::update() {
  model_.setState(MenuContent::state(viewModel_, commands_.isBusy()));
}

}  // namespace glintboard
