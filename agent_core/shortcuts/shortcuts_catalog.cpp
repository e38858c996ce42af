// SPDX-License-Identifier: MIT
#include "agent_core/shortcuts/shortcuts_catalog.h"

#include <QString>
#include <algorithm>

#include "platform/live.h"
#include "protocol/text.h"
#include "protocol/uuid.h"

namespace glintboard {
namespace {

using Code = ShortcutsCatalogError::Code;
constexpr std::chrono::seconds listTimeout(15);

UserError described(Code code, std::int32_t exitCode, std::string_view stderrText) {
  switch (code) {
    case Code::executableMissing:
      return UserError(
          QT_TRANSLATE_NOOP("UserError", "The shortcuts CLI is not available on this Mac."));
    case Code::parseFailed:
      return UserError(QT_TRANSLATE_NOOP("UserError", "Could not parse the Shortcuts list."));
    case Code::listFailed:
      break;
  }
  const std::string_view detail = trimmed(stderrText);
  return detail.empty()
             ? UserError(QT_TRANSLATE_NOOP("UserError", "Could not list Shortcuts (exit %1)."),
                         {std::to_string(exitCode)})
             : UserError(QT_TRANSLATE_NOOP("UserError", "Could not list Shortcuts: %1"),
                         {std::string(detail)});
}

bool mentions(const QString& name, const char* word) {
  return name.contains(QLatin1String(word), Qt::CaseInsensitive);
}

}  // namespace

ShortcutsCatalogError::ShortcutsCatalogError(Code givenCode, std::int32_t givenExitCode,
                                             std::string givenStderrText)
    : UserError(described(givenCode, givenExitCode, givenStderrText)),
      code(givenCode),
      exitCode(givenExitCode),
      stderrText(std::move(givenStderrText)) {}

ShortcutsCatalog::ShortcutsCatalog(std::string executable)
    : ShortcutsCatalog(std::move(executable), LivePlatform::current().processRunner()) {}

Awaitable<std::vector<CatalogShortcut>> ShortcutsCatalog::list() const {
  if (!isExecutableFile(executable_)) {
    throw ShortcutsCatalogError(Code::executableMissing);
  }
  const std::vector<std::string> arguments = {"list", "--show-identifiers"};
  const auto result = co_await runner_.run(executable_, arguments, listTimeout);
  if (result.exitCode != 0 || result.timedOut) {
    throw ShortcutsCatalogError(Code::listFailed, result.exitCode, result.stderrText);
  }
  co_return parseListOutput(result.stdoutText);
}

std::vector<CatalogShortcut> ShortcutsCatalog::parseListOutput(std::string_view output) {
  std::vector<CatalogShortcut> shortcuts;
  while (!output.empty()) {
    const auto end = std::min(output.find_first_of("\r\n"), output.size());
    if (auto shortcut = parseListLine(output.substr(0, end))) {
      shortcuts.push_back(std::move(*shortcut));
    }
    output.remove_prefix(std::min(end + 1, output.size()));
  }
  return shortcuts;
}

std::optional<CatalogShortcut> ShortcutsCatalog::parseListLine(std::string_view line) {
  line = trimmed(line);
  const auto open = line.rfind('(');
  if (!line.ends_with(')') || open == std::string_view::npos || open == 0) {
    return std::nullopt;
  }
  const auto identifier = trimmed(line.substr(open + 1, line.size() - open - 2));
  const auto name = trimmed(line.substr(0, open));
  if (name.empty() || !isShortcutIdentifier(identifier)) {
    return std::nullopt;
  }
  return CatalogShortcut{std::string(name), std::string(identifier)};
}

bool ShortcutsCatalog::isShortcutIdentifier(std::string_view text) {
  return hasUuidShape(text);
}

std::optional<CatalogShortcut> ShortcutsCatalog::findHero(
    const std::vector<CatalogShortcut>& shortcuts) {
  const auto preferred =
      std::ranges::find(shortcuts, heroRecipePreferredName, &CatalogShortcut::name);
  if (preferred != shortcuts.end()) {
    return *preferred;
  }
  const auto similar = std::ranges::find_if(shortcuts, [](const CatalogShortcut& shortcut) {
    const QString name = QString::fromStdString(shortcut.name);
    return mentions(name, "Voice") && mentions(name, "Cursor");
  });
  return similar == shortcuts.end() ? std::nullopt : std::optional(*similar);
}

}  // namespace glintboard
