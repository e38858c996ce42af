#include "platform/linux/shortcut_icons.h"

#include <sys/stat.h>

#include <algorithm>
#include <system_error>

#include "platform/linux/application_icons.h"
#include "platform/linux/application_shortcuts.h"
#include "platform/linux/icon_lookup.h"
#include "platform/linux/shortcut_folder.h"
#include "platform/linux/shortcut_text.h"
#include "platform/linux/shortcut_tile.h"
#include "platform/log.h"

namespace glintboard {

namespace {

// Which file, and which content of it.
std::string stampOf(const std::filesystem::path& file) {
  struct stat status{};
  if (::stat(file.c_str(), &status) != 0) {
    return file;
  }
  return file.string() + ' ' + std::to_string(status.st_ino) + ' ' +
         std::to_string(status.st_mtim.tv_sec) + '.' + std::to_string(status.st_mtim.tv_nsec);
}

class ShortcutIcons {
 public:
  ShortcutIcons(std::shared_ptr<const ApplicationIndex> index, const XdgFolders& folders)
      : index_(std::move(index)), folder_(ShortcutFolder::pathIn(folders)), lookup_(folders) {}

  std::optional<ShortcutIconClient::Icon> icon(const std::string& identifier) {
    const auto shortcuts = all();
    const auto found = std::ranges::find(shortcuts, upperCase(identifier), &Shortcut::identifier);
    return found == shortcuts.end() ? std::nullopt : std::optional(iconOf(*found));
  }

  std::vector<ShortcutIconClient::Icon> icons() {
    std::vector<ShortcutIconClient::Icon> icons;
    for (const auto& shortcut : all()) {
      icons.push_back(iconOf(shortcut));
    }
    return icons;
  }

 private:
  // The user's own first: they win where an identifier is there twice.
  std::vector<Shortcut> all() const {
    auto shortcuts = own();
    auto actions = applicationShortcuts(index_->current()->all());
    std::move(actions.begin(), actions.end(), std::back_inserter(shortcuts));
    return shortcuts;
  }

  std::vector<Shortcut> own() const {
    try {
      return folder_.read().shortcuts;
    } catch (const std::system_error& error) {
      log::info(std::string("the Shortcuts cannot be read: ") + error.what());
      return {};
    }
  }

  ShortcutIconClient::Icon iconOf(const Shortcut& shortcut) {
    const auto& identifier = shortcut.identifier;
    const auto file = lookup_.find(shortcut.icon);
    if (file.empty()) {
      return {identifier, identifier,
              [identifier](int side) { return drawShortcutTile(identifier, side); }};
    }
    return {identifier, stampOf(file), [file](int side) {
              const auto drawn = drawIcon(file, side);
              return drawn.isNull() ? drawShortcutTile(file, side) : drawn;
            }};
  }

  std::shared_ptr<const ApplicationIndex> index_;
  const ShortcutFolder folder_;
  IconLookup lookup_;
};

}  // namespace

ShortcutIconClient shortcutIcons(std::shared_ptr<const ApplicationIndex> index,
                                 const XdgFolders& folders) {
  const auto icons = std::make_shared<ShortcutIcons>(std::move(index), folders);
  return {[icons](const std::string& identifier) { return icons->icon(identifier); },
          [icons] { return icons->icons(); }};
}

}  // namespace glintboard
