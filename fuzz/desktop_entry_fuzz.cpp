// SPDX-License-Identifier: MIT
// Desktop entries of applications, and Shortcut files, which have the same format.
#include "fuzz/fuzz.h"
#include "platform/linux/applications/desktop_entry.h"
#include "platform/linux/shortcuts/application_shortcuts.h"
#include "platform/linux/shortcuts/shortcut_file.h"
#include "tests/support/temporary_folder.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace glintboard;
  static const fuzz::MemoryFile file;
  static const test::TemporaryFolder folder;
  static const auto shortcut = [] {
    const auto name = folder / "6F9619FF-8B86-D011-B42D-00C04FC964FF.shortcut";
    std::filesystem::create_symlink(file.path(), name);
    return name;
  }();

  file.write(fuzz::textOf(data, size));
  if (const auto entry = readDesktopEntry(file.path(), "id")) {
    for (const auto& action : applicationShortcuts({*entry})) {
      fuzz::require(action.name.find_first_of("\n\r") == std::string::npos,
                    "the name of a Shortcut is one line");
    }
  }
  try {
    const auto read = readShortcutFile(shortcut);
    fuzz::require(!read.name.empty() && !read.command.empty(), "a Shortcut has name and command");
  } catch (const ShortcutFileError&) {
  }
  return 0;
}
