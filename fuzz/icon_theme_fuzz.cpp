// SPDX-License-Identifier: MIT
// The index file of an icon theme.
#include "fuzz/fuzz.h"
#include "platform/linux/applications/icon_theme.h"
#include "tests/support/temporary_folder.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace glintboard;
  static const fuzz::MemoryFile file;
  static const test::TemporaryFolder folder;
  static const auto root = [] {
    const auto theme = folder / "theme";
    for (const char* name : {"scalable/apps", "48x48/apps", "a"}) {
      std::filesystem::create_directories(theme / name);
    }
    std::filesystem::create_symlink(file.path(), theme / "index.theme");
    return theme;
  }();

  file.write(fuzz::textOf(data, size));
  FileStamps stamps;
  const auto theme = readIconTheme("theme", {folder.path()}, stamps);
  for (const auto& found : theme.folders) {
    fuzz::require(std::filesystem::is_directory(found), "a theme's folders exist");
  }
  return 0;
}
