#include "agent/shell/text_menu.h"

#include <poll.h>
#include <unistd.h>

#include <QTimer>
#include <array>
#include <cerrno>

#include "agent/shell/qr_text.h"
#include "platform/log.h"
#include "platform/spawn.h"

namespace glintboard {
namespace {

constexpr qsizetype maxLine = 4096;

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
      quit_(std::move(quit)),
      notifier_(input, QSocketNotifier::Read) {
  for (const auto changed :
       {&AgentViewModel::currentPINChanged, &AgentViewModel::pairingQRStringChanged,
        &AgentViewModel::pairedDevicesChanged, &AgentViewModel::isLockedOutChanged,
        &AgentViewModel::isListenerRunningChanged, &AgentViewModel::listenerErrorChanged,
        &AgentViewModel::hasConnectedPhoneChanged, &AgentViewModel::shortcutCoachMessageChanged,
        &AgentViewModel::isShowingPairingCodeChanged}) {
    connect(&viewModel, changed, this, &TextMenu::schedulePrint);
  }
  connect(&notifier_, &QSocketNotifier::activated, this, &TextMenu::readInput);
}

std::string TextMenu::block(const AgentViewModel& viewModel, bool withQRCode) {
  std::string block = "\n";
  appendLine(block, tr("Glintboard Agent"));
  if (MenuContent::pairingSection(viewModel) == PairingSection::code) {
    appendLine(block, tr("Manual code") + QLatin1Char(' ') + viewModel.currentPIN());
    appendLine(block, viewModel.pairingQRString());
    if (withQRCode) {
      block += qrHalfBlocks(viewModel.pairingQRString().toStdString());
    }
  } else {
    appendLine(block, viewModel.pairingStatusText());
  }
  appendLine(block, MenuContent::statusText(viewModel));
  appendLine(block, viewModel.listenerError());
  appendLine(block, viewModel.shortcutCoachMessage());
  int number = 0;
  for (const MenuCommand command : MenuContent::commands(viewModel)) {
    appendLine(block, QStringLiteral("%1. %2").arg(++number).arg(MenuContent::buttonText(command)));
  }
  return block;
}

std::optional<MenuCommand> TextMenu::command(const AgentViewModel& viewModel, const QString& line) {
  const auto offered = MenuContent::commands(viewModel);
  bool isNumber = false;
  const auto number = line.toUInt(&isNumber);
  if (isNumber) {
    return number >= 1 && number <= offered.size() ? std::optional(offered[number - 1])
                                                   : std::nullopt;
  }
  for (const MenuCommand command : offered) {
    if (MenuContent::buttonText(command).compare(line, Qt::CaseInsensitive) == 0) {
      return command;
    }
  }
  return std::nullopt;
}

// Several fields often change in one turn; they make one block.
void TextMenu::schedulePrint() {
  if (!printScheduled_) {
    printScheduled_ = true;
    QTimer::singleShot(0, this, &TextMenu::print);
  }
}

void TextMenu::print() {
  printScheduled_ = false;
  if (commandsUnderWay_ != 0) {
    return;  // The last of them prints.
  }
  write(block(viewModel_, ::isatty(output_) != 0));
}

void TextMenu::readInput() {
  std::array<char, 512> buffer{};
  const ssize_t count = ::read(input_, buffer.data(), buffer.size());
  if (count <= 0) {
    if (count == 0 || (errno != EINTR && errno != EAGAIN)) {
      notifier_.setEnabled(false);  // The agent goes on without its input.
    }
    return;
  }
  unread_.append(buffer.data(), count);
  for (qsizetype end = unread_.indexOf('\n'); end >= 0; end = unread_.indexOf('\n')) {
    const QString line = QString::fromUtf8(unread_.first(end)).trimmed();
    unread_.remove(0, end + 1);
    if (const auto pressed = command(viewModel_, line)) {
      press(*pressed);
    }
  }
  if (unread_.size() > maxLine) {
    unread_.clear();
  }
}

void TextMenu::perform(Awaitable<> operation) {
  ++commandsUnderWay_;
  spawn(viewModel_.executor(), performed(this, std::move(operation)), "menu");
}

Awaitable<> TextMenu::performed(QPointer<TextMenu> menu, Awaitable<> operation) {
  try {
    co_await std::move(operation);
  } catch (const std::exception& error) {
    log::warning("menu: ", error.what());
  }
  if (menu != nullptr) {
    --menu->commandsUnderWay_;
    menu->schedulePrint();
  }
}

void TextMenu::press(MenuCommand command) {
  switch (command) {
    case MenuCommand::dismissHint:
      return perform(viewModel_.dismissShortcutCoachMessage());
    case MenuCommand::restartAgent:
      return perform(viewModel_.restartListener());
    case MenuCommand::editDeck:
      return write(viewModel_.deckStore().storageURL().string() + "\n");
    case MenuCommand::showPairingCode:
      return perform(viewModel_.showPairingCode());
    case MenuCommand::hidePairingCode:
      return perform(viewModel_.hidePairingCode());
    case MenuCommand::unpair:
      return perform(viewModel_.unpair());
    case MenuCommand::quit:
      return quit_();
  }
}

void TextMenu::write(std::string_view text) const {
  // Whoever reads may be gone, or so slow that writing would wait: then this text is lost, and the
  // menu goes on.
  pollfd writable{output_, POLLOUT, 0};
  if (::poll(&writable, 1, 0) == 1) {
    [[maybe_unused]] const auto written = ::write(output_, text.data(), text.size());
  }
}

}  // namespace glintboard
