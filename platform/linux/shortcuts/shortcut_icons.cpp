// SPDX-License-Identifier: MIT
#include "platform/linux/shortcuts/shortcut_icons.h"

#include <sys/stat.h>

#include <algorithm>
#include <mutex>
#include <system_error>

#include "platform/linux/applications/application_icons.h"
#include "platform/linux/applications/icon_lookup.h"
#include "platform/linux/base/file_stamps.h"
#include "platform/linux/shortcuts/application_shortcuts.h"
#include "platform/linux/shortcuts/shortcut_folder.h"
#include "platform/linux/shortcuts/shortcut_text.h"
#include "platform/linux/shortcuts/shortcut_tile.h"
#include "platform/log.h"

namespace glintboard {

namespace {

// Identifies a file and its content.
std::string stampOf(const std::filesystem::path& file, const struct stat& status) {
  return file.string() + ' ' + std::to_string(status.st_ino) + ' ' +
         std::to_string(status.st_mtim.tv_sec) + '.' + std::to_string(status.st_mtim.tv_nsec);
}

class ShortcutIcons {
 public:
  ShortcutIcons(std::shared_ptr<const ApplicationIndex> index, const XdgFolders& folders)
      : index_(std::move(index)), folder_(ShortcutFolder::pathIn(folders)), lookup_(folders) {}

  // The user's Shortcuts win over an action with the same identifier.
  std::optional<ShortcutIconClient::Icon> icon(const std::string& identifier) {
    const auto iconAmong =
        [&](const std::vector<Shortcut>& shortcuts) -> std::optional<ShortcutIconClient::Icon> {
      const auto found = std::ranges::find(shortcuts, upperCase(identifier), &Shortcut::identifier);
      return found == shortcuts.end() ? std::nullopt : std::optional(iconOf(*found));
    };
    auto icon = iconAmong(*own());
    return icon ? icon : iconAmong(*actions());
  }

  std::vector<ShortcutIconClient::Icon> icons() {
    std::vector<ShortcutIconClient::Icon> icons;
    for (const auto& shortcuts : {own(), actions()}) {
      for (const auto& shortcut : *shortcuts) {
        icons.push_back(iconOf(shortcut));
      }
    }
    return icons;
  }

 private:
  // The Shortcuts of the applications, cached until the applications change.
  std::shared_ptr<const std::vector<Shortcut>> actions() {
    auto installed = index_->current();
    const std::scoped_lock lock(mutex_);
    if (installed != actionsOf_) {
      actions_ =
          std::make_shared<const std::vector<Shortcut>>(applicationShortcuts(installed->all()));
      actionsOf_ = std::move(installed);
    }
    return actions_;
  }

  // The user's Shortcuts, cached until their folder changes.
  std::shared_ptr<const std::vector<Shortcut>> own() {
    const std::scoped_lock lock(mutex_);
    if (!ownStamps_.unchanged()) {
      own_ = std::make_shared<const std::vector<Shortcut>>(readOwn());
    }
    return own_;
  }

  std::vector<Shortcut> readOwn() {
    ownStamps_ = {};
    ownStamps_.noteFolder(folder_.path());
    try {
      auto read = folder_.read();
      if (!read.skipped.empty()) {
        ownStamps_ = {};  // a skipped file may become usable without being modified
      }
      return std::move(read.shortcuts);
    } catch (const std::system_error& error) {
      log::info("cannot read the Shortcuts: ", error.what());
      return {};
    }
  }

  ShortcutIconClient::Icon iconOf(const Shortcut& shortcut) {
    const auto& identifier = shortcut.identifier;
    struct stat status{};
    const auto file = lookup_.find(shortcut.icon, status);
    if (file.empty()) {
      return {identifier, identifier,
              [identifier](int side) { return drawShortcutTile(identifier, side); }};
    }
    return {identifier, stampOf(file, status), [file](int side) {
              const auto drawn = drawIcon(file, side);
              return drawn.isNull() ? drawShortcutTile(file, side) : drawn;
            }};
  }

  std::shared_ptr<const ApplicationIndex> index_;
  const ShortcutFolder folder_;
  IconLookup lookup_;
  std::mutex mutex_;
  FileStamps ownStamps_;
  std::shared_ptr<const std::vector<Shortcut>> own_;
  std::shared_ptr<const InstalledApplications> actionsOf_;
  std::shared_ptr<const std::vector<Shortcut>> actions_;
};

}  // namespace

ShortcutIconClient shortcutIcons(std::shared_ptr<const ApplicationIndex> index,
                                 const XdgFolders& folders) {
  const auto icons = std::make_shared<ShortcutIcons>(std::move(index), folders);
  return {[icons](const std::string& identifier) { return icons->icon(identifier); },
          [icons] { return icons->icons(); }};
}

}  // namespace glintboard
