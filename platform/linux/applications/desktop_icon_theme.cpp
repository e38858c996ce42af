// SPDX-License-Identifier: MIT
#include "platform/linux/applications/desktop_icon_theme.h"

#include <cstdlib>

#include "platform/linux/base/gio_call.h"
#include "platform/linux/base/key_file.h"

namespace glintboard {

namespace {

constexpr const char* gnomeSettings = "org.gnome.desktop.interface";
constexpr const char* gnomeKey = "icon-theme";

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

// The default of GNOME's setting.
std::string gnomeDefault() {
  auto* source = g_settings_schema_source_get_default();
  const GLibPointer<GSettingsSchema> schema(
      source == nullptr ? nullptr : g_settings_schema_source_lookup(source, gnomeSettings, TRUE));
  // GLib aborts a process that reads a setting without a schema.
  if (!schema || g_settings_schema_has_key(schema.get(), gnomeKey) == 0) {
    return "";
  }
  const GLibPointer<GSettingsSchemaKey> key(g_settings_schema_get_key(schema.get(), gnomeKey));
  const GLibPointer<GVariant> value(g_settings_schema_key_get_default_value(key.get()));
  return g_variant_get_string(value.get(), nullptr);
}

// The theme that a running desktop portal reports from GNOME's settings. GSettings is not used: it
// keeps a connection to the bus that ends this process when the bus ends.
std::string fromPortal() {
  const auto address = sessionBusAddress();
  if (address.empty()) {
    return "";
  }
  GioCalls calls(std::chrono::seconds(1));
  const auto connected =
      calls.run([&](GCancellable* cancellable, GAsyncReadyCallback callback, void* data) {
        g_dbus_connection_new_for_address(address.c_str(), messageBusFlags(), nullptr, cancellable,
                                          callback, data);
      });
  const GObjectPointer<GDBusConnection> bus(
      connected ? g_dbus_connection_new_for_address_finish(connected.get(), nullptr) : nullptr);
  if (!bus) {
    return "";
  }
  const auto answered =
      calls.run([&](GCancellable* cancellable, GAsyncReadyCallback callback, void* data) {
        g_dbus_connection_call(bus.get(), "org.freedesktop.portal.Desktop",
                               "/org/freedesktop/portal/desktop", "org.freedesktop.portal.Settings",
                               "Read", g_variant_new("(ss)", gnomeSettings, gnomeKey),
                               G_VARIANT_TYPE("(v)"), G_DBUS_CALL_FLAGS_NO_AUTO_START, -1,
                               cancellable, callback, data);
      });
  GLibPointer<GVariant> value(
      answered ? g_dbus_connection_call_finish(bus.get(), answered.get(), nullptr) : nullptr);
  // The text is wrapped in several variants.
  while (value && g_variant_is_container(value.get()) != 0) {
    value.reset(g_variant_n_children(value.get()) == 0 ? nullptr
                                                       : g_variant_get_child_value(value.get(), 0));
  }
  return value && g_variant_is_of_type(value.get(), G_VARIANT_TYPE_STRING) != 0
             ? g_variant_get_string(value.get(), nullptr)
             : "";
}

}  // namespace

std::string desktopIconTheme(const XdgFolders& folders, FileStamps& stamps) {
  const auto kde = fromFiles(folders.configFolders("kdeglobals"), "Icons", "Theme", stamps);
  const auto gtk = fromGtk(folders, stamps);
  // The portal reads the theme from this file.
  stamps.note(folders.configHome / "dconf/user");
  const bool onKde = folders.currentDesktop.find("KDE") != std::string::npos;
  // KDE's files may be left over from another desktop, so elsewhere they come last.
  for (const auto& theme : {onKde ? kde : fromPortal(), gtk, gnomeDefault(), kde}) {
    if (!theme.empty()) {
      return theme;
    }
  }
  return "";
}

}  // namespace glintboard
