#include "platform/linux/desktop_icon_theme.h"

#include "platform/linux/key_file.h"

namespace glintboard {

namespace {

std::string fromFiles(const std::vector<std::filesystem::path>& files, const char* group,
                      const char* key, FileStamps& stamps) {
  for (const auto& path : files) {
    stamps.note(path);
    const auto file = loadKeyFile(path);
    auto theme = file ? textOf(file.get(), group, key) : "";
    if (!theme.empty()) {
      return theme;
    }
  }
  return "";
}

std::string fromGtk(const XdgFolders& folders, FileStamps& stamps) {
  for (const char* file : {"gtk-4.0/settings.ini", "gtk-3.0/settings.ini"}) {
    auto theme = fromFiles({folders.configHome / file, std::filesystem::path("/etc") / file},
                           "Settings", "gtk-icon-theme-name", stamps);
    if (!theme.empty()) {
      return theme;
    }
  }
  return "";
}

struct GnomeSetting {
  // The user's own choice, and what holds without one.
  std::string chosen;
  std::string usual;
};

GnomeSetting fromGnome(const XdgFolders& folders, FileStamps& stamps) {
  constexpr const char* kKey = "icon-theme";
  stamps.note(folders.configHome / "dconf/user");
  auto* source = g_settings_schema_source_get_default();
  // GLib ends a process that asks for a setting that is not described.
  const GLibPointer<GSettingsSchema> schema(
      source == nullptr
          ? nullptr
          : g_settings_schema_source_lookup(source, "org.gnome.desktop.interface", TRUE));
  if (!schema || g_settings_schema_has_key(schema.get(), kKey) == 0) {
    return {};
  }
  const GObjectPointer<GSettings> settings(g_settings_new_full(schema.get(), nullptr, nullptr));
  const GLibPointer<GVariant> chosen(g_settings_get_user_value(settings.get(), kKey));
  const GLibPointer<char> usual(g_settings_get_string(settings.get(), kKey));
  return {chosen ? g_variant_get_string(chosen.get(), nullptr) : "", usual.get()};
}

}  // namespace

std::string desktopIconTheme(const XdgFolders& folders, FileStamps& stamps) {
  const auto kde = fromFiles(folders.configFolders("kdeglobals"), "Icons", "Theme", stamps);
  const auto gtk = fromGtk(folders, stamps);
  const auto gnome = fromGnome(folders, stamps);
  const bool onKde = folders.currentDesktop.find("KDE") != std::string::npos;
  // Where a desktop has no settings of its own here, they may be another desktop's leftovers.
  for (const auto& theme : {onKde ? kde : gnome.chosen, gtk, gnome.usual, kde}) {
    if (!theme.empty()) {
      return theme;
    }
  }
  return "";
}

}  // namespace glintboard
