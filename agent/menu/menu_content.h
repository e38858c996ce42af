// SPDX-License-Identifier: MIT
// The contents of the menu, shared by the window and the text menu.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QString>
#include <vector>

#include "agent/menu/agent_view_model.h"

namespace glintboard {

// The menu's enumerations; QML names them as `Menu.Unpair`.
namespace Menu {
Q_NAMESPACE
QML_ELEMENT

// In the order of the buttons.
enum class Command {
  DismissHint,
  RestartAgent,
  EditDeck,
  ShowPairingCode,
  HidePairingCode,
  Unpair,
  Quit,
};
Q_ENUM_NS(Command)

// The contents of the pairing section.
enum class Section { PairedDevice, Code, LockedOut };
Q_ENUM_NS(Section)

// The contents of the status row.
enum class Status { Connected, Ready, Waiting, Failed, Starting };
Q_ENUM_NS(Status)
}  // namespace Menu

using MenuCommand = Menu::Command;
using PairingSection = Menu::Section;
using ConnectionStatus = Menu::Status;

// A consistent snapshot of the menu. Optional texts are null when absent.
struct MenuState {
  PairingSection section = PairingSection::Code;
  QString pairingStatusText;
  QString pairingQRString;
  QString currentPIN;
  QString hint;
  ConnectionStatus status = ConnectionStatus::Starting;
  QString listenerError;
  bool isPaired = false;
  bool isShowingPairingCode = false;
  bool isBusy = false;  // a command is running

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
