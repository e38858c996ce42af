// SPDX-License-Identifier: MIT
#include "agent/menu/text_menu.h"

#include <unistd.h>

#include <QTimer>
#include <array>
#include <cerrno>
#include <chrono>

#include "agent/menu/qr_text.h"

namespace glintboard {
namespace {

constexpr qsizetype maxLine = 4096;
constexpr auto backgroundPause = std::chrono::seconds(1);

// Without what could steer a terminal: phones choose their own names.
QString printable(const QString& text) {
  QString result;
  for (const QChar character : text) {
    const auto category = character.category();
    if (category != QChar::Other_Control && category != QChar::Other_Format) {
      result.append(character);
    }
  }
  return result;
}

void appendLine(std::string& block, const QString& line) {
  if (!line.isEmpty()) {
    block += printable(line).toStdString() + "\n";
  }
}

}  // namespace

TextMenu::TextMenu(AgentViewModel& viewModel, int input, int output, std::function<void()> quit)
    : viewModel_(viewModel),
      input_(input),
      output_(output),
      writer_(output),
      commands_(viewModel,
                {[this] { writer_.write(viewModel_.deckStore().storageURL().string() + "\n"); },
                 std::move(quit)}),
      notifier_(input, QSocketNotifier::Read) {
  connect(&commands_, &MenuCommands::changed, this, &TextMenu::print);
  connect(&notifier_, &QSocketNotifier::activated, this, &TextMenu::readInput);
}

std::string TextMenu::block(const MenuState& state, bool withQRCode) {
  std::string block = "\n";
  appendLine(block, MenuContent::title());
  if (state.section == PairingSection::Code) {
    appendLine(block, tr("Manual code") + QLatin1Char(' ') + state.currentPIN);
    appendLine(block, state.pairingQRString);
    if (withQRCode) {
      block += qrHalfBlocks(state.pairingQRString.toStdString());
    }
  } else {
    appendLine(block, state.pairingStatusText);
  }
  appendLine(block, MenuContent::statusText(state.status));
  appendLine(block, state.listenerError);
  appendLine(block, state.hint);
  int number = 0;
  for (const MenuCommand command : MenuContent::commands(state)) {
    appendLine(block, QStringLiteral("%1. %2").arg(++number).arg(MenuContent::buttonText(command)));
  }
  return block;
}

std::optional<MenuCommand> TextMenu::command(const MenuState& state, const QString& line) {
  const auto offered = MenuContent::commands(state);
  bool isNumber = false;
  const auto number = line.toUInt(&isNumber);
  if (isNumber) {
    return number >= 1 && number <= offered.size() ? std::optional(offered[number - 1])
                                                   : std::nullopt;
  }
  for (const MenuCommand command : offered) {
    for (const QString& text : {MenuContent::buttonText(command),
                                QString::fromUtf8(MenuContent::englishButtonText(command))}) {
      if (text.compare(line, Qt::CaseInsensitive) == 0) {
        return command;
      }
    }
  }
  return std::nullopt;
}

void TextMenu::print() {
  // The end of what is under way is a change too.
  if (!commands_.isBusy()) {
    writer_.write(block(MenuContent::state(viewModel_), ::isatty(output_) != 0));
  }
}

void TextMenu::readInput() {
  std::array<char, 512> buffer{};
  const ssize_t count = ::read(input_, buffer.data(), buffer.size());
  if (count <= 0) {
    if (count < 0 && errno == EIO) {
      // The terminal listens to another job of its shell; what is typed is not for the agent.
      notifier_.setEnabled(false);
      QTimer::singleShot(backgroundPause, this, [this] { notifier_.setEnabled(true); });
    } else if (count == 0 || (errno != EINTR && errno != EAGAIN)) {
      notifier_.setEnabled(false);  // The agent goes on without its input.
    }
    return;
  }
  unread_.append(buffer.data(), count);
  for (qsizetype end = unread_.indexOf('\n'); end >= 0; end = unread_.indexOf('\n')) {
    const QString line = QString::fromUtf8(unread_.first(end)).trimmed();
    unread_.remove(0, end + 1);
    if (const auto pressed = command(MenuContent::state(viewModel_), line)) {
      commands_.press(*pressed);
    }
  }
  if (unread_.size() > maxLine) {
    unread_.clear();
  }
}

}  // namespace glintboard
