// SPDX-License-Identifier: MIT
// The menu of an agent without a display.
#pragma once

#include <QSocketNotifier>
#include <functional>
#include <optional>
#include <string>

#include "agent/menu/menu_commands.h"
#include "agent/menu/text_writer.h"

namespace glintboard {

// Prints the menu whenever a field changes, and reads commands as lines: a button's number or its
// text, in the user's language or in English. Main thread.
class TextMenu : public QObject {
  Q_OBJECT

 public:
  // `input` and `output` are descriptors. `quit` ends the application.
  TextMenu(AgentViewModel& viewModel, int input, int output, std::function<void()> quit);

  // The menu as lines of text; with the QR code when `withQRCode`.
  static std::string block(const MenuState& state, bool withQRCode);
  // The command that a line of input means, among those offered.
  static std::optional<MenuCommand> command(const MenuState& state, const QString& line);

 private:
  void print();
  void readInput();

  AgentViewModel& viewModel_;
  int input_;
  int output_;
  TextWriter writer_;
  MenuCommands commands_;
  QSocketNotifier notifier_;
  QByteArray unread_;
};

}  // namespace glintboard
