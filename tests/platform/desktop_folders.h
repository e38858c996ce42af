// SPDX-License-Identifier: MIT
// A user's folders and desktop entries, made by a test.
#pragma once

#include <sys/stat.h>

#include "platform/atomic_file.h"
#include "platform/linux/base/xdg_folders.h"
#include "tests/support/eventually.h"
#include "tests/support/temporary_folder.h"

namespace glintboard::test {

// Hides the settings of the session that the tests run in.
struct DesktopFolders {
  DesktopFolders() { ::setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent", 1); }

  TemporaryFolder root;
  XdgFolders folders{.home = root / "home",
                     .dataHome = root / "home/data",
                     .dataDirs = {root / "local", root / "system"},
                     .stateHome = root / "home/state",
                     .configHome = root / "home/config",
                     .configDirs = {root / "etc"},
                     .currentDesktop = ""};

  // Writes a desktop entry below the root; `lines` follow its name.
  std::filesystem::path entry(const std::filesystem::path& file, const std::string& lines) const {
    return root.write(
        file, "[Desktop Entry]\nType=Application\nName=" + file.stem().string() + "\n" + lines);
  }
  // The entry of an application whose program is the shell script `script`.
  void scripted(const std::string& id, const std::string& script) const {
    const auto file = program("bin/" + id, "#!/bin/sh\n" + script + "\n");
    entry("system/applications/" + id + ".desktop", "Exec=" + file.string() + "\n");
  }
  // Writes an executable file below the root.
  std::filesystem::path program(const std::filesystem::path& file, const std::string& text) const {
    const auto path = root.write(file, text);
    ::chmod(path.c_str(), 0755);
    return path;
  }

  // A shell command that writes the output of `command` atomically into a file below the root.
  std::string report(const std::string& file, const std::string& command) const {
    const auto path = (root / file).string();
    return "(" + command + ") >" + path + ".new; mv " + path + ".new " + path;
  }
  // Waits for such a file and returns its content. Throws on a timeout.
  std::string reported(const std::string& file) const {
    eventually([&] { return std::filesystem::exists(root / file); });
    return readWholeFile(root / file);
  }
};

}  // namespace glintboard::test
