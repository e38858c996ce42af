// SPDX-License-Identifier: MIT
#include "platform/linux/shortcuts/shortcut_folder.h"

#include <fcntl.h>
#include <sys/file.h>

#include <algorithm>
#include <boost/uuid/random_generator.hpp>
#include <boost/uuid/uuid_io.hpp>
#include <chrono>
#include <set>
#include <system_error>
#include <thread>

#include "platform/file_descriptor.h"
#include "platform/linux/shortcuts/shortcut_text.h"

namespace glintboard {

namespace fs = std::filesystem;

namespace {

// Locks a folder against other changes during its lifetime.
class FolderLock {
 public:
  explicit FolderLock(const fs::path& folder) {
    makePrivately(folder);
    folder_ = FileDescriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder_) {
      throw std::system_error(errno, std::generic_category(), folder.string());
    }
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (::flock(folder_.get(), LOCK_EX | LOCK_NB) != 0) {
      if (std::chrono::steady_clock::now() > deadline) {
        throw ShortcutFileError("another program is changing the Shortcuts; try again");
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
  }

 private:
  // Commands may contain secrets.
  static void makePrivately(const fs::path& folder) {
    fs::create_directories(folder.parent_path());
    if (fs::create_directory(folder)) {
      fs::permissions(folder, fs::perms::owner_all);
    }
  }

  FileDescriptor folder_;
};

}  // namespace

fs::path ShortcutFolder::pathIn(const XdgFolders& folders) {
  return folders.dataHome / "GlintboardAgent" / "Shortcuts";
}

ShortcutFiles ShortcutFolder::read() const {
  std::error_code error;
  std::set<fs::path> files;
  for (fs::directory_iterator entry(path_, error), end; !error && entry != end;
       entry.increment(error)) {
    if (entry->path().extension() == shortcutFileExtension) {
      files.insert(entry->path());
    }
  }
  if (error && error != std::errc::no_such_file_or_directory) {
    throw std::system_error(error, path_.string());
  }
  ShortcutFiles found;
  std::set<std::string> identifiers;
  for (const auto& file : files) {
    try {
      auto shortcut = readShortcutFile(file);
      if (!identifiers.insert(shortcut.identifier).second) {
        throw ShortcutFileError("another file has the same UUID");
      }
      found.shortcuts.push_back(std::move(shortcut));
    } catch (const ShortcutFileError& reason) {
      found.skipped.push_back({file, reason.what()});
    }
  }
  return found;
}

Shortcut ShortcutFolder::create(const ShortcutChanges& content) {
  const FolderLock lock(path_);
  refuseTakenName(content, "");
  const auto identifier = upperCase(to_string(boost::uuids::random_generator()()));
  const auto file = path_ / (identifier + shortcutFileExtension);
  changeShortcutFile(file, content);
  return readShortcutFile(file);
}

Shortcut ShortcutFolder::change(const Shortcut& shortcut, const ShortcutChanges& changes) {
  const FolderLock lock(path_);
  refuseTakenName(changes, shortcut.identifier);
  // The file may have been deleted before the lock was acquired.
  readShortcutFile(shortcut.file);
  changeShortcutFile(shortcut.file, changes);
  return readShortcutFile(shortcut.file);
}

void ShortcutFolder::remove(const Shortcut& shortcut) {
  const FolderLock lock(path_);
  fs::remove(shortcut.file);
}

void ShortcutFolder::refuseTakenName(const ShortcutChanges& changes,
                                     const std::string& exceptOf) const {
  if (!changes.name) {
    return;
  }
  const auto name = oneLine(*changes.name);
  for (const auto& other : read().shortcuts) {
    if (other.name == name && other.identifier != exceptOf) {
      throw ShortcutFileError("there is already a Shortcut of that name (" + other.identifier +
                              ")");
    }
  }
}

}  // namespace glintboard
