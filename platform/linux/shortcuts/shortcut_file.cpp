// SPDX-License-Identifier: MIT
#include "platform/linux/shortcuts/shortcut_file.h"

#include <boost/uuid/string_generator.hpp>
#include <boost/uuid/uuid_io.hpp>

#include "platform/atomic_file.h"
#include "platform/linux/base/key_file.h"
#include "platform/linux/shortcuts/shortcut_text.h"
#include "protocol/utf8.h"

namespace glintboard {

namespace {

constexpr const char* group = "Shortcut";
constexpr const char* nameKey = "Name";
constexpr const char* iconKey = "Icon";
constexpr const char* commandKey = "Command";
// NOLINTNEXTLINE(clang-analyzer-optin.core.EnumCastOutOfRange): flags, declared as an enum.
constexpr auto keepAll =
    static_cast<GKeyFileFlags>(G_KEY_FILE_KEEP_COMMENTS | G_KEY_FILE_KEEP_TRANSLATIONS);

std::string identifierOf(const std::filesystem::path& file) {
  const auto stem = upperCase(file.stem().string());
  try {
    // The generator also takes forms that no Shortcut identifier has.
    if (upperCase(to_string(boost::uuids::string_generator()(stem))) == stem) {
      return stem;
    }
  } catch (const std::runtime_error&) {
  }
  throw ShortcutFileError("its name is no UUID");
}

std::string requiredText(GKeyFile* content, const char* key) {
  GLibPointer<GError> error;
  const GLibPointer<char> text(g_key_file_get_string(content, group, key, leftIn(error)));
  if (g_error_matches(error.get(), G_KEY_FILE_ERROR, G_KEY_FILE_ERROR_INVALID_VALUE)) {
    throw ShortcutFileError(std::string("its ") + key + " is no valid text");
  }
  const std::string found = text ? text.get() : "";
  if (oneLine(found).empty()) {
    throw ShortcutFileError(std::string("it has no ") + key);
  }
  return found;
}

GLibPointer<GKeyFile> load(const std::filesystem::path& file) {
  auto content = loadKeyFile(file, keepAll);
  if (!content) {
    throw ShortcutFileError("it cannot be read as a Shortcut");
  }
  return content;
}

Shortcut shortcutIn(GKeyFile* content, const std::filesystem::path& file) {
  Shortcut shortcut;
  shortcut.identifier = identifierOf(file);
  shortcut.name = oneLine(requiredText(content, nameKey));
  shortcut.icon = textOf(content, group, iconKey);
  shortcut.command = requiredText(content, commandKey);
  shortcut.file = file;
  return shortcut;
}

void set(GKeyFile* content, const char* key, const std::optional<std::string>& text) {
  if (!text) {
    return;
  }
  if (!isValidUtf8(*text)) {
    throw ShortcutFileError(std::string("the ") + key + " is no UTF-8 text");
  }
  g_key_file_set_string(content, group, key, text->c_str());
}

}  // namespace

Shortcut readShortcutFile(const std::filesystem::path& file) {
  return shortcutIn(load(file).get(), file);
}

void changeShortcutFile(const std::filesystem::path& file, const ShortcutChanges& changes) {
  std::error_code ignored;
  const auto content =
      std::filesystem::exists(file, ignored) ? load(file) : GLibPointer<GKeyFile>(g_key_file_new());
  set(content.get(), nameKey, changes.name);
  set(content.get(), commandKey, changes.command);
  if (changes.icon && changes.icon->empty()) {
    g_key_file_remove_key(content.get(), group, iconKey, nullptr);
  } else {
    set(content.get(), iconKey, changes.icon);
  }
  shortcutIn(content.get(), file);
  std::size_t size = 0;
  const GLibPointer<char> text(g_key_file_to_data(content.get(), &size, nullptr));
  writeAtomically(file, {text.get(), size}, 0600);
}

}  // namespace glintboard
