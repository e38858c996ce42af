// SPDX-License-Identifier: MIT
#include "agent/menu/menu_content.h"

#include <QCoreApplication>

namespace glintboard::MenuContent {
namespace {

struct Text {
  Q_DECLARE_TR_FUNCTIONS(MenuBarView)
};

PairingSection pairingSection(const AgentViewModel& viewModel) {
  if (viewModel.isPaired() && !viewModel.isShowingPairingCode()) {
    return PairingSection::pairedDevice;
  }
  return viewModel.isLockedOut() ? PairingSection::lockedOut : PairingSection::code;
}

ConnectionStatus connectionStatus(const AgentViewModel& viewModel) {
  if (viewModel.hasConnectedPhone()) {
    return ConnectionStatus::connected;
  }
  if (viewModel.isListenerRunning()) {
    return viewModel.isPaired() ? ConnectionStatus::waiting : ConnectionStatus::ready;
  }
  return viewModel.listenerError().isNull() ? ConnectionStatus::starting : ConnectionStatus::failed;
}

}  // namespace

MenuState state(const AgentViewModel& viewModel, bool isBusy) {
  return {pairingSection(viewModel),        viewModel.pairingStatusText(),
          viewModel.pairingQRString(),      viewModel.currentPIN(),
          viewModel.shortcutCoachMessage(), connectionStatus(viewModel),
          viewModel.listenerError(),        viewModel.isPaired(),
          viewModel.isShowingPairingCode(), isBusy};
}

QString title() {
  return Text::tr("Glintboard Agent");
}

QString statusText(ConnectionStatus status) {
  switch (status) {
    case ConnectionStatus::connected:
      return Text::tr("iPhone connected");
    case ConnectionStatus::ready:
      return Text::tr("Ready for iPhone");
    case ConnectionStatus::waiting:
      return Text::tr("Waiting for iPhone");
    case ConnectionStatus::failed:
      return Text::tr("Connection failed");
    case ConnectionStatus::starting:
      return Text::tr("Starting\u2026");
  }
  return {};
}

std::vector<MenuCommand> commands(const MenuState& state) {
  std::vector<MenuCommand> offered;
  if (!state.hint.isNull()) {
    offered.push_back(MenuCommand::dismissHint);
  }
  if (!state.listenerError.isNull()) {
    offered.push_back(MenuCommand::restartAgent);
  }
  offered.push_back(MenuCommand::editDeck);
  if (state.isPaired) {
    offered.push_back(state.isShowingPairingCode ? MenuCommand::hidePairingCode
                                                 : MenuCommand::showPairingCode);
    offered.push_back(MenuCommand::unpair);
  }
  offered.push_back(MenuCommand::quit);
  return offered;
}

const char* englishButtonText(MenuCommand command) {
  switch (command) {
    case MenuCommand::dismissHint:
      return QT_TRANSLATE_NOOP("MenuBarView", "Dismiss");
    case MenuCommand::restartAgent:
      return QT_TRANSLATE_NOOP("MenuBarView", "Restart Agent");
    case MenuCommand::editDeck:
      return QT_TRANSLATE_NOOP("MenuBarView", "Edit Deck");
    case MenuCommand::showPairingCode:
      return QT_TRANSLATE_NOOP("MenuBarView", "Show Pairing Code\u2026");
    case MenuCommand::hidePairingCode:
      return QT_TRANSLATE_NOOP("MenuBarView", "Hide Pairing Code");
    case MenuCommand::unpair:
      return QT_TRANSLATE_NOOP("MenuBarView", "Unpair iPhone");
    case MenuCommand::quit:
      return QT_TRANSLATE_NOOP("MenuBarView", "Quit");
  }
  return "";
}

QString buttonText(MenuCommand command) {
  return Text::tr(englishButtonText(command));
}

}  // namespace glintboard::MenuContent
