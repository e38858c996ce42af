// SPDX-License-Identifier: MIT
#include "agent_core/shortcuts/shortcuts_runner.h"

#include <array>

#include "platform/live.h"
#include "protocol/text.h"

namespace glintboard {

using namespace ShortcutRunResult;

namespace {

constexpr std::int32_t terminatedExitCode = 143;  // 128 + SIGTERM

// What the tool's words mean, the first that it uses deciding.
constexpr std::array<std::pair<std::string_view, ShortcutErrorCode>, 8> meanings = {{
    {"not found", ShortcutErrorCode::notFound},
    {"couldn't find", ShortcutErrorCode::notFound},
    {"does not exist", ShortcutErrorCode::notFound},
    {"cancel", ShortcutErrorCode::cancelled},
    {"not authorized", ShortcutErrorCode::cancelled},
    {"permission", ShortcutErrorCode::cancelled},
    {"not allowed", ShortcutErrorCode::cancelled},
    {"privacy", ShortcutErrorCode::cancelled},
}};

// Whether the tool reads exactly this identifier: neither a part of it nor an option.
bool canBeOperand(std::string_view identifier) {
  return canBeArgument(identifier) && !identifier.starts_with('-');
}

ShortcutErrorCode classified(const ProcessRunResult& result) {
  const std::string said = lowercased(trimmed(result.stderrText));
  for (const auto& [words, code] : meanings) {
    if (said.find(words) != std::string::npos) {
      return code;
    }
  }
  return result.exitCode == terminatedExitCode ? ShortcutErrorCode::cancelled
                                               : ShortcutErrorCode::runFailed;
}

}  // namespace

ShortcutsRunner::ShortcutsRunner(std::string executable, std::chrono::duration<double> timeout)
    : ShortcutsRunner(std::move(executable), LivePlatform::current().processRunner(), timeout) {}

Awaitable<Result> ShortcutsRunner::run(std::string shortcutIdentifier) const {
  if (!isExecutableFile(executable_)) {
    co_return Error{std::move(shortcutIdentifier), ShortcutErrorCode::runFailed,
                    "The shortcuts CLI is not available on this Mac."};
  }
  if (!canBeOperand(shortcutIdentifier)) {
    constexpr auto code = ShortcutErrorCode::notFound;
    co_return Error{std::move(shortcutIdentifier), code, message(code, "")};
  }
  ProcessRunResult result;
  try {
    const std::vector<std::string> arguments = {"run", shortcutIdentifier};
    result = co_await runner_.run(executable_, arguments, timeout_);
  } catch (const std::exception& error) {
    co_return Error{std::move(shortcutIdentifier), ShortcutErrorCode::runFailed, error.what()};
  }
  if (!result.timedOut && result.exitCode == 0) {
    co_return Ok{std::move(shortcutIdentifier)};
  }
  const auto code = result.timedOut ? ShortcutErrorCode::timedOut : classified(result);
  co_return Error{std::move(shortcutIdentifier), code, message(code, result.stderrText)};
}

std::string ShortcutsRunner::message(ShortcutErrorCode code, std::string_view stderrText) {
  switch (code) {
    case ShortcutErrorCode::notFound:
      return "Shortcut missing \u2014 replace it in Edit Deck.";
    case ShortcutErrorCode::cancelled:
      return "Needs permission or input on your Mac.";
    case ShortcutErrorCode::timedOut:
      return "Still waiting on your Mac \u2014 check for a dialog.";
    case ShortcutErrorCode::unauthorized:
      return "Not connected.";
    case ShortcutErrorCode::runFailed:
      break;
  }
  const std::string_view said = trimmed(stderrText);
  return said.empty() ? "Could not run Shortcut on Mac." : std::string(said);
}

}  // namespace glintboard
