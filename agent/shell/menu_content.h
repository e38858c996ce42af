// What the menu says, whatever draws it.
#pragma once

#include <QString>
#include <vector>

#include "agent/shell/agent_view_model.h"

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

// The rules of the menu over the view model's fields. Main thread.
namespace MenuContent {

PairingSection pairingSection(const AgentViewModel& viewModel);
ConnectionStatus status(const AgentViewModel& viewModel);
QString statusText(ConnectionStatus status);
QString statusText(const AgentViewModel& viewModel);
// The commands that are offered now.
std::vector<MenuCommand> commands(const AgentViewModel& viewModel);
QString buttonText(MenuCommand command);
// As it stands in every language's list of texts.
const char* englishButtonText(MenuCommand command);

}  // namespace MenuContent
}  // namespace glintboard
