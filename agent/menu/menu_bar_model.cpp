// SPDX-License-Identifier: MIT
#include "agent/menu/menu_bar_model.h"

#include "ui/design/deck_brand_palette.h"

namespace glintboard {
namespace {

constexpr float quiet = 0.85F;  // the opacity of a status without a connection

}  // namespace

MenuBarModel::MenuBarModel(AgentViewModel& viewModel, MenuActions actions)
    : commands_(std::make_unique<MenuCommands>(viewModel, std::move(actions))),
      press_([this](MenuCommand command) { commands_->press(command); }) {
  const auto update = [this, &viewModel] {
    setState(MenuContent::state(viewModel, commands_->isBusy()));
  };
  connect(commands_.get(), &MenuCommands::changed, this, update);
  update();
}

void MenuBarModel::setState(MenuState state) {
  if (state == state_) {
    return;
  }
  state_ = std::move(state);
  Q_EMIT changed();
}

QStringList MenuBarModel::pinGroups() const {
  const auto half = (state_.currentPIN.size() + 1) / 2;
  return {state_.currentPIN.first(half), state_.currentPIN.sliced(half)};
}

QColor MenuBarModel::statusColor() const {
  QColor color = DeckBrandPalette::success;
  switch (state_.status) {
    case ConnectionStatus::Connected:
      return color;
    case ConnectionStatus::Ready:
    case ConnectionStatus::Waiting:
      color.setAlphaF(quiet);
      return color;
    case ConnectionStatus::Failed:
      return DeckBrandPalette::dangerVivid;
    case ConnectionStatus::Starting:
      return DeckBrandPalette::warning;
  }
  return color;
}

QList<int> MenuBarModel::commands() const {
  QList<int> shown;
  for (const MenuCommand command : MenuContent::commands(state_)) {
    shown.append(static_cast<int>(command));
  }
  return shown;
}

}  // namespace glintboard
