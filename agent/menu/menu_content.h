// SPDX-License-Identifier: MIT
// What the menu says, whatever draws it.
#pragma once

#include <QString>
#include <vector>

#include "agent/menu/agent_view_model.h"

namespace glintboard {

// The menu's commands, in the order of their buttons.
enum class MenuCommand {
  dismissHint,
  restartAgent,
  editDeck,
  showPairingCode,
  hidePairingCode,
  unpair,
  quit,
};

// What the pairing section shows.
enum class PairingSection { pairedDevice, code, lockedOut };

// What the status row tells.
enum class ConnectionStatus { connected, ready, waiting, failed, starting };

// One consistent picture of the menu. Optional texts are null when absent.
struct MenuState {
  PairingSection section = PairingSection::code;
  QString pairingStatusText;
  QString pairingQRString;
  QString currentPIN;
  QString hint;
  ConnectionStatus status = ConnectionStatus::starting;
  QString listenerError;
  bool isPaired = false;
  bool isShowingPairingCode = false;
  bool isBusy = false;  // a command has not done its work yet

  bool operator==(const MenuState&) const = default;
};

// The rules of the menu, and its texts. Main thread.
namespace MenuContent {

MenuState state(const AgentViewModel& viewModel, bool isBusy = false);
// The commands that are offered in a state.
std::vector<MenuCommand> commands(const MenuState& state);
QString title();
QString statusText(ConnectionStatus status);
QString buttonText(MenuCommand command);
// As it stands in every language's list of texts.
const char* englishButtonText(MenuCommand command);

}  // namespace MenuContent
}  // namespace glintboard
