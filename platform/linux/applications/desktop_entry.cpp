// SPDX-License-Identifier: MIT
#include "platform/linux/applications/desktop_entry.h"

#include <optional>

#include "platform/linux/base/key_file.h"

namespace glintboard {

namespace {

constexpr const char* entryGroup = G_KEY_FILE_DESKTOP_GROUP;

// The argument with "%%" unescaped; none for an argument with a field code.
std::optional<std::string> fixedArgument(std::string_view argument) {
  std::string fixed;
  for (std::size_t i = 0; i < argument.size(); ++i) {
    if (argument[i] == '%') {
      if (i + 1 == argument.size() || argument[i + 1] != '%') {
        return std::nullopt;
      }
      ++i;
    }
    fixed += argument[i];
  }
  return fixed;
}

std::vector<std::string> commandOf(const std::string& exec) {
  GLibPointer<char*> arguments;
  if (g_shell_parse_argv(exec.c_str(), nullptr, leftIn(arguments), nullptr) == 0) {
    return {};
  }
  std::vector<std::string> command;
  for (char** argument = arguments.get(); *argument != nullptr; ++argument) {
    auto fixed = fixedArgument(*argument);
    if (fixed) {
      command.push_back(std::move(*fixed));
    } else if (argument == arguments.get()) {
      return {};
    }
  }
  return command;
}

// The text in the user's language, or `fallback`.
std::string localText(GKeyFile* file, const char* group, const char* key,
                      std::string fallback = "") {
  const GLibPointer<char> text(g_key_file_get_locale_string(file, group, key, nullptr, nullptr));
  return text ? text.get() : std::move(fallback);
}

std::vector<DesktopEntry::Action> actionsOf(GKeyFile* file) {
  std::vector<DesktopEntry::Action> actions;
  const GLibPointer<char*> ids(g_key_file_get_string_list(
      file, entryGroup, G_KEY_FILE_DESKTOP_KEY_ACTIONS, nullptr, nullptr));
  for (char** id = ids.get(); id != nullptr && *id != nullptr; ++id) {
    const std::string group = std::string("Desktop Action ") + *id;
    auto name = localText(file, group.c_str(), G_KEY_FILE_DESKTOP_KEY_NAME);
    if (!name.empty()) {
      actions.push_back(
          {*id, std::move(name), localText(file, group.c_str(), G_KEY_FILE_DESKTOP_KEY_ICON)});
    }
  }
  return actions;
}

}  // namespace

std::optional<DesktopEntry> readDesktopEntry(const std::filesystem::path& path, std::string id) {
  std::error_code unknown;
  const auto modified = std::filesystem::last_write_time(path, unknown);
  const auto file = loadKeyFile(path);
  if (!file || textOf(file.get(), entryGroup, G_KEY_FILE_DESKTOP_KEY_TYPE) !=
                   G_KEY_FILE_DESKTOP_TYPE_APPLICATION) {
    return std::nullopt;
  }
  DesktopEntry entry;
  entry.id = std::move(id);
  entry.path = path;
  entry.modified = modified;
  entry.name = localText(file.get(), entryGroup, G_KEY_FILE_DESKTOP_KEY_NAME, path.stem().string());
  entry.icon = localText(file.get(), entryGroup, G_KEY_FILE_DESKTOP_KEY_ICON);
  entry.command = commandOf(textOf(file.get(), entryGroup, G_KEY_FILE_DESKTOP_KEY_EXEC));
  entry.tryExec = textOf(file.get(), entryGroup, G_KEY_FILE_DESKTOP_KEY_TRY_EXEC);
  entry.startupWmClass = textOf(file.get(), entryGroup, G_KEY_FILE_DESKTOP_KEY_STARTUP_WM_CLASS);
  entry.hidden = flagOf(file.get(), entryGroup, G_KEY_FILE_DESKTOP_KEY_HIDDEN);
  entry.noDisplay = flagOf(file.get(), entryGroup, G_KEY_FILE_DESKTOP_KEY_NO_DISPLAY);
  entry.dbusActivatable = flagOf(file.get(), entryGroup, G_KEY_FILE_DESKTOP_KEY_DBUS_ACTIVATABLE);
  entry.actions = actionsOf(file.get());
  return entry;
}

std::filesystem::path findProgram(const std::string& program) {
  const GLibPointer<char> found(g_find_program_in_path(program.c_str()));
  return found ? found.get() : "";
}

}  // namespace glintboard
