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
    return PairingSection::PairedDevice;
  }
  return viewModel.isLockedOut() ? PairingSection::LockedOut : PairingSection::Code;
}

ConnectionStatus connectionStatus(const AgentViewModel& viewModel) {
  if (viewModel.hasConnectedPhone()) {
    return ConnectionStatus::Connected;
  }
  if (viewModel.isListenerRunning()) {
    return viewModel.isPaired() ? ConnectionStatus::Waiting : ConnectionStatus::Ready;
  }
  return viewModel.listenerError().isNull() ? ConnectionStatus::Starting : ConnectionStatus::Failed;
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
    case ConnectionStatus::Connected:
      return Text::tr("iPhone connected");
    case ConnectionStatus::Ready:
      return Text::tr("Ready for iPhone");
    case ConnectionStatus::Waiting:
      return Text::tr("Waiting for iPhone");
    case ConnectionStatus::Failed:
      return Text::tr("Connection failed");
    case ConnectionStatus::Starting:
      return Text::tr("Starting\u2026");
  }
  return {};
}

std::vector<MenuCommand> commands(const MenuState& state) {
  std::vector<MenuCommand> offered;
  if (!state.hint.isNull()) {
    offered.push_back(MenuCommand::DismissHint);
  }
  if (!state.listenerError.isNull()) {
    offered.push_back(MenuCommand::RestartAgent);
  }
  offered.push_back(MenuCommand::EditDeck);
  if (state.isPaired) {
    offered.push_back(state.isShowingPairingCode ? MenuCommand::HidePairingCode
                                                 : MenuCommand::ShowPairingCode);
    offered.push_back(MenuCommand::Unpair);
  }
  offered.push_back(MenuCommand::Quit);
  return offered;
}

const char* englishButtonText(MenuCommand command) {
  switch (command) {
    case MenuCommand::DismissHint:
      return QT_TRANSLATE_NOOP("MenuBarView", "Dismiss");
    case MenuCommand::RestartAgent:
      return QT_TRANSLATE_NOOP("MenuBarView", "Restart Agent");
    case MenuCommand::EditDeck:
      return QT_TRANSLATE_NOOP("MenuBarView", "Edit Deck");
    case MenuCommand::ShowPairingCode:
      return QT_TRANSLATE_NOOP("MenuBarView", "Show Pairing Code\u2026");
    case MenuCommand::HidePairingCode:
      return QT_TRANSLATE_NOOP("MenuBarView", "Hide Pairing Code");
    case MenuCommand::Unpair:
      return QT_TRANSLATE_NOOP("MenuBarView", "Unpair iPhone");
    case MenuCommand::Quit:
      return QT_TRANSLATE_NOOP("MenuBarView", "Quit");
  }
  return "";
}

QString buttonText(MenuCommand command) {
  return Text::tr(englishButtonText(command));
}

}  // namespace glintboard::MenuContent
