// SPDX-License-Identifier: MIT
// The output of `shortcuts list`.
#include "agent_core/shortcuts/shortcuts_catalog.h"
#include "fuzz/fuzz.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace glintboard;
  const auto shortcuts = ShortcutsCatalog::parseListOutput(fuzz::textOf(data, size));
  std::string printed;
  for (const auto& shortcut : shortcuts) {
    fuzz::require(ShortcutsCatalog::isShortcutIdentifier(shortcut.identifier),
                  "a Shortcut has an identifier");
    printed += shortcut.name + " (" + shortcut.identifier + ")\n";
  }
  fuzz::require(ShortcutsCatalog::parseListOutput(printed) == shortcuts,
                "a list that is printed reads back as the same");
  ShortcutsCatalog::findHero(shortcuts);
  return 0;
}
