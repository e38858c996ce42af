// SPDX-License-Identifier: MIT
// Runs the user's Shortcuts.
#pragma once

#include <optional>
#include <string>
#include <variant>

#include "platform/process_running.h"
#include "protocol/payloads.h"

namespace glintboard {

namespace ShortcutRunResult {
struct Ok {
  std::string shortcutIdentifier;
  bool operator==(const Ok&) const = default;
};
struct Error {
  std::string shortcutIdentifier;
  ShortcutErrorCode code{};
  std::optional<std::string> message;
  bool operator==(const Error&) const = default;
};
using Result = std::variant<Ok, Error>;
}  // namespace ShortcutRunResult

// Runs Shortcuts with the command-line tool. Any executor, concurrent calls.
class ShortcutsRunner {
 public:
  static constexpr std::chrono::seconds defaultTimeout{25};

  // `runner` must outlive this.
  ShortcutsRunner(std::string executable, ProcessRunning& runner,
                  std::chrono::duration<double> timeout = defaultTimeout)
      : executable_(std::move(executable)), runner_(runner), timeout_(timeout) {}
  // With the live platform's runner.
  explicit ShortcutsRunner(std::string executable,
                           std::chrono::duration<double> timeout = defaultTimeout);

  // Never throws: every failure is a result.
  Awaitable<ShortcutRunResult::Result> run(std::string shortcutIdentifier) const;

  // The text for the user. `stderrText` is the tool's error output.
  static std::string message(ShortcutErrorCode code, std::string_view stderrText);

 private:
  std::string executable_;
  ProcessRunning& runner_;
  std::chrono::duration<double> timeout_;
};

}  // namespace glintboard
