#include "agent/shell/menu_content.h"

#include <QCoreApplication>

namespace glintboard::MenuContent {
namespace {

QString localized(const char* text) {
  return QCoreApplication::translate("MenuBarView", text);
}

}  // namespace

PairingSection pairingSection(const AgentViewModel& viewModel) {
  if (viewModel.isPaired() && !viewModel.isShowingPairingCode()) {
    return PairingSection::pairedDevice;
  }
  return viewModel.isLockedOut() ? PairingSection::lockedOut : PairingSection::code;
}

ConnectionStatus status(const AgentViewModel& viewModel) {
  if (viewModel.hasConnectedPhone()) {
    return ConnectionStatus::connected;
  }
  if (viewModel.isListenerRunning()) {
    return viewModel.isPaired() ? ConnectionStatus::waiting : ConnectionStatus::ready;
  }
  return viewModel.listenerError().isNull() ? ConnectionStatus::starting : ConnectionStatus::failed;
}

QString statusText(const AgentViewModel& viewModel) {
  switch (status(viewModel)) {
    case ConnectionStatus::connected:
      return localized("iPhone connected");
    case ConnectionStatus::ready:
      return localized("Ready for iPhone");
    case ConnectionStatus::waiting:
      return localized("Waiting for iPhone");
    case ConnectionStatus::failed:
      return localized("Connection failed");
    case ConnectionStatus::starting:
      return localized("Starting\u2026");
  }
  return {};
}

std::vector<MenuCommand> commands(const AgentViewModel& viewModel) {
  std::vector<MenuCommand> offered;
  if (!viewModel.shortcutCoachMessage().isNull()) {
    offered.push_back(MenuCommand::dismissHint);
  }
  if (!viewModel.listenerError().isNull()) {
    offered.push_back(MenuCommand::restartAgent);
  }
  offered.push_back(MenuCommand::editDeck);
  if (viewModel.isPaired()) {
    offered.push_back(viewModel.isShowingPairingCode() ? MenuCommand::hidePairingCode
                                                       : MenuCommand::showPairingCode);
    offered.push_back(MenuCommand::unpair);
  }
  offered.push_back(MenuCommand::quit);
  return offered;
}

QString buttonText(MenuCommand command) {
  switch (command) {
    case MenuCommand::dismissHint:
      return localized("Dismiss");
    case MenuCommand::restartAgent:
      return localized("Restart Agent");
    case MenuCommand::editDeck:
      return localized("Edit Deck");
    case MenuCommand::showPairingCode:
      return localized("Show Pairing Code\u2026");
    case MenuCommand::hidePairingCode:
      return localized("Hide Pairing Code");
    case MenuCommand::unpair:
      return localized("Unpair iPhone");
    case MenuCommand::quit:
      return localized("Quit");
  }
  return {};
}

}  // namespace glintboard::MenuContent
