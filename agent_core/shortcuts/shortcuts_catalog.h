// SPDX-License-Identifier: MIT
// The user's Shortcuts.
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
  // Of a failed listing.
  std::int32_t exitCode;
  std::string stderrText;
};

// Lists the Shortcuts through the command-line tool.
class ShortcutsCatalog {
 public:
  static constexpr const char* defaultExecutable = "/usr/bin/shortcuts";
  // The suggested Shortcut: the name that it should have, and how the editor shows it.
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

  // The Shortcuts of the tool's output in its order; lines that name none are skipped.
  static std::vector<CatalogShortcut> parseListOutput(std::string_view output);
  // A name, a space and an identifier in parentheses; none for any other line.
  static std::optional<CatalogShortcut> parseListLine(std::string_view line);
  // Whether the text has the form of a Shortcut identifier, in either letter case.
  static bool isShortcutIdentifier(std::string_view text);
  // The suggested Shortcut: the one of the preferred name, else the first that speaks of both
  // "Voice" and "Cursor".
  static std::optional<CatalogShortcut> findHero(const std::vector<CatalogShortcut>& shortcuts);

 private:
  std::string executable_;
  ProcessRunning& runner_;
};

}  // namespace glintboard
