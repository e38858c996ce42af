#include "platform/linux/desktop_entry.h"

#include <optional>

#include "platform/linux/key_file.h"

namespace glintboard {

namespace {

constexpr const char* kGroup = G_KEY_FILE_DESKTOP_GROUP;

// The argument without its escaped percent signs, or none when the launcher would put something
// in.
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

}  // namespace

std::optional<DesktopEntry> readDesktopEntry(const std::filesystem::path& path, std::string id) {
  const auto file = loadKeyFile(path);
  if (!file || textOf(file.get(), kGroup, G_KEY_FILE_DESKTOP_KEY_TYPE) !=
                   G_KEY_FILE_DESKTOP_TYPE_APPLICATION) {
    return std::nullopt;
  }
  DesktopEntry entry;
  entry.id = std::move(id);
  entry.path = path;
  const GLibPointer<char> name(g_key_file_get_locale_string(
      file.get(), kGroup, G_KEY_FILE_DESKTOP_KEY_NAME, nullptr, nullptr));
  entry.name = name ? name.get() : entry.id;
  const GLibPointer<char> icon(g_key_file_get_locale_string(
      file.get(), kGroup, G_KEY_FILE_DESKTOP_KEY_ICON, nullptr, nullptr));
  entry.icon = icon ? icon.get() : "";
  entry.command = commandOf(textOf(file.get(), kGroup, G_KEY_FILE_DESKTOP_KEY_EXEC));
  entry.tryExec = textOf(file.get(), kGroup, G_KEY_FILE_DESKTOP_KEY_TRY_EXEC);
  entry.startupWmClass = textOf(file.get(), kGroup, G_KEY_FILE_DESKTOP_KEY_STARTUP_WM_CLASS);
  entry.hidden = flagOf(file.get(), kGroup, G_KEY_FILE_DESKTOP_KEY_HIDDEN);
  entry.noDisplay = flagOf(file.get(), kGroup, G_KEY_FILE_DESKTOP_KEY_NO_DISPLAY);
  entry.dbusActivatable = flagOf(file.get(), kGroup, G_KEY_FILE_DESKTOP_KEY_DBUS_ACTIVATABLE);
  return entry;
}

std::filesystem::path findProgram(const std::string& program) {
  const GLibPointer<char> found(g_find_program_in_path(program.c_str()));
  return found ? found.get() : "";
}

}  // namespace glintboard
