// SPDX-License-Identifier: MIT
// The list of the user's Shortcuts.
#pragma once

#include <QtGlobal>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/process_running.h"
#include "platform/user_error.h"

namespace glintboard {

struct CatalogShortcut {
  std::string name;
  std::string identifier;  // as the tool prints it

  const std::string& id() const { return identifier; }
  bool operator==(const CatalogShortcut&) const = default;
};

class ShortcutsCatalogError : public UserError {
 public:
  enum class Code { listFailed, executableMissing, parseFailed };
  explicit ShortcutsCatalogError(Code code, std::int32_t exitCode = 0, std::string stderrText = "");

  Code code;
  // The tool's, for `listFailed`.
  std::int32_t exitCode;
  std::string stderrText;
};

// Lists the Shortcuts with the command-line tool. Any executor, concurrent calls.
class ShortcutsCatalog {
 public:
  static constexpr const char* defaultExecutable = "/usr/bin/shortcuts";
  // The suggested Shortcut: its preferred name, and its name and symbol in the editor.
  static constexpr std::string_view heroRecipePreferredName = "Glintboard \u2014 Voice in Cursor";
  static constexpr const char* heroRecipeDisplayName =
      QT_TRANSLATE_NOOP("glintboard::ShortcutsLibrary", "Voice prompt in Cursor");
  static constexpr std::string_view heroRecipeSymbolName = "mic.fill";

  // `runner` must outlive the catalog.
  ShortcutsCatalog(std::string executable, ProcessRunning& runner)
      : executable_(std::move(executable)), runner_(runner) {}
  // With the live platform's runner.
  explicit ShortcutsCatalog(std::string executable);

  // Throws ShortcutsCatalogError, or the runner's error when the tool cannot be started.
  Awaitable<std::vector<CatalogShortcut>> list() const;

  // The Shortcuts in the tool's output, in the same order. Other lines are skipped.
  static std::vector<CatalogShortcut> parseListOutput(std::string_view output);
  // The Shortcut in a line "NAME (IDENTIFIER)"; none for any other line.
  static std::optional<CatalogShortcut> parseListLine(std::string_view line);
  // Whether the text has the form of a Shortcut identifier, in either letter case.
  static bool isShortcutIdentifier(std::string_view text);
  // The suggested Shortcut: the one with the preferred name, else the first whose name contains
  // "Voice" and "Cursor", regardless of letter case.
  static std::optional<CatalogShortcut> findHero(const std::vector<CatalogShortcut>& shortcuts);

 private:
  std::string executable_;
  ProcessRunning& runner_;
};

}  // namespace glintboard
