// SPDX-License-Identifier: MIT
#include "agent/menu/menu_bar_model.h"

#include "ui/design/deck_brand_palette.h"

namespace glintboard {
namespace {

static_assert(static_cast<int>(PairingSection::pairedDevice) == MenuBarModel::PairedDevice);
static_assert(static_cast<int>(PairingSection::lockedOut) == MenuBarModel::LockedOut);
static_assert(static_cast<int>(MenuCommand::dismissHint) == MenuBarModel::DismissHint);
static_assert(static_cast<int>(MenuCommand::quit) == MenuBarModel::Quit);

constexpr float quiet = 0.85F;  // the opacity of a status without a connection

}  // namespace

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
    case ConnectionStatus::connected:
      return color;
    case ConnectionStatus::ready:
    case ConnectionStatus::waiting:
      color.setAlphaF(quiet);
      return color;
    case ConnectionStatus::failed:
      return DeckBrandPalette::dangerVivid;
    case ConnectionStatus::starting:
      return DeckBrandPalette::warning;
  }
  return color;
}

int MenuBarModel::commands() const {
  unsigned offered = 0;
  for (const MenuCommand command : MenuContent::commands(state_)) {
    offered |= 1U << static_cast<unsigned>(command);
  }
  return static_cast<int>(offered);
}

QString MenuBarModel::buttonText(Command command) {
  return MenuContent::buttonText(static_cast<MenuCommand>(command));
}

}  // namespace glintboard
