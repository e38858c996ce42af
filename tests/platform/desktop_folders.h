// A user's folders and desktop entries, made by a test.
#pragma once

#include <sys/stat.h>

#include "platform/linux/xdg_folders.h"
#include "tests/support/temporary_folder.h"

namespace glintboard::test {

struct DesktopFolders {
  TemporaryFolder root;
  XdgFolders folders{.home = root / "home",
                     .dataHome = root / "home/data",
                     .dataDirs = {root / "local", root / "system"},
                     .configHome = root / "home/config",
                     .configDirs = {root / "etc"},
                     .currentDesktop = ""};

  // Writes a desktop entry below the root; `lines` follow its name.
  std::filesystem::path entry(const std::filesystem::path& file, const std::string& lines) const {
    return root.write(
        file, "[Desktop Entry]\nType=Application\nName=" + file.stem().string() + "\n" + lines);
  }

  // Writes an executable file below the root.
  std::filesystem::path program(const std::filesystem::path& file, const std::string& text) const {
    const auto path = root.write(file, text);
    ::chmod(path.c_str(), 0755);
    return path;
  }
};

}  // namespace glintboard::test
