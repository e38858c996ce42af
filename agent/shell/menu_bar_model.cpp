#include "agent/shell/menu_bar_model.h"

#include "ui/design/deck_brand_palette.h"

namespace glintboard {
namespace {

static_assert(static_cast<int>(PairingSection::pairedDevice) == MenuBarModel::PairedDevice);
static_assert(static_cast<int>(PairingSection::lockedOut) == MenuBarModel::LockedOut);

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

}  // namespace glintboard
