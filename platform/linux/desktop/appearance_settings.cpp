// SPDX-License-Identifier: MIT
#include "platform/linux/desktop/appearance_settings.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "platform/linux/base/key_file.h"
#include "protocol/text.h"

namespace glintboard {
namespace {

template <class T>
std::optional<T> first(const std::optional<T>& value, const std::optional<T>& other) {
  return value ? value : other;
}

bool contains(const std::string& text, const char* part) {
  return text.find(part) != std::string::npos;
}

std::optional<bool> flag(GKeyFile* file, const char* group, const char* key) {
  const auto text = lowercased(textOf(file, group, key));
  if (text.empty()) {
    return std::nullopt;
  }
  return text == "true" || text == "1";
}

std::optional<double> number(const std::string& text) {
  char* end = nullptr;
  const double value = g_ascii_strtod(text.c_str(), &end);
  return end == text.c_str() ? std::nullopt : std::optional(value);
}

template <class T>
void fill(std::optional<T>& setting, const std::optional<T>& value) {
  setting = first(setting, value);
}

void readGtk(const XdgFolders& folders, AppearanceSettings& settings) {
  constexpr const char* group = "Settings";
  for (const char* name : {"gtk-4.0/settings.ini", "gtk-3.0/settings.ini"}) {
    const auto file = loadKeyFile(folders.configHome / name);
    if (!file) {
      continue;
    }
    fill(settings.prefersDark, flag(file.get(), group, "gtk-application-prefer-dark-theme"));
    fill(settings.animations, flag(file.get(), group, "gtk-enable-animations"));
    if (settings.themeName.empty()) {
      settings.themeName = textOf(file.get(), group, "gtk-theme-name");
    }
  }
  // "Adwaita:dark"
  const char* theme = std::getenv("GTK_THEME");
  if (theme != nullptr && *theme != '\0') {
    settings.themeName = theme;
    settings.prefersDark = contains(lowercased(theme), "dark");
  }
}

void readKde(const XdgFolders& folders, AppearanceSettings& settings) {
  for (const auto& path : folders.configFolders("kdeglobals")) {
    const auto file = loadKeyFile(path);
    if (!file) {
      continue;
    }
    const auto colour = commaListOf(file.get(), "Colors:Window", "BackgroundNormal");
    if (colour.size() >= 3) {
      const auto part = [&](std::size_t i) { return number(colour[i]).value_or(255); };
      fill(settings.prefersDark,
           std::optional(0.299 * part(0) + 0.587 * part(1) + 0.114 * part(2) < 128));
    }
    const auto duration = number(textOf(file.get(), "KDE", "AnimationDurationFactor"));
    if (duration) {
      fill(settings.animations, std::optional(*duration > 0));
    }
  }
}

// GSettings stores its values in this file if dconf is not installed.
void readGSettings(const XdgFolders& folders, AppearanceSettings& settings) {
  const auto file = loadKeyFile(folders.configHome / "glib-2.0/settings/keyfile");
  if (!file) {
    return;
  }
  for (const auto& [group, space] :
       {std::pair("org/gnome/desktop/interface", "org.gnome.desktop.interface"),
        std::pair("org/gnome/desktop/a11y/interface", "org.gnome.desktop.a11y.interface")}) {
    for (const char* key : {"color-scheme", "gtk-theme", "enable-animations", "high-contrast",
                            "text-scaling-factor"}) {
      const GLibPointer<char> text(g_key_file_get_value(file.get(), group, key, nullptr));
      const GLibPointer<GVariant> value(
          text ? g_variant_parse(nullptr, text.get(), nullptr, nullptr, nullptr) : nullptr);
      if (value) {
        settings.take(space, key, value.get());
      }
    }
  }
}

}  // namespace

void AppearanceSettings::take(std::string_view space, std::string_view key, GVariant* value) {
  const auto is = [&](std::string_view wantedSpace, std::string_view wantedKey,
                      const GVariantType* type) {
    return space == wantedSpace && key == wantedKey && g_variant_is_of_type(value, type) != 0;
  };
  constexpr std::string_view common = "org.freedesktop.appearance";
  constexpr std::string_view gnome = "org.gnome.desktop.interface";
  if (is(common, "color-scheme", G_VARIANT_TYPE_UINT32)) {
    const auto scheme = g_variant_get_uint32(value);
    prefersDark = scheme == 1 || scheme == 2 ? std::optional(scheme == 1) : std::nullopt;
  } else if (is(common, "contrast", G_VARIANT_TYPE_UINT32)) {
    prefersContrast = g_variant_get_uint32(value) == 1;
  } else if (is(common, "reduced-motion", G_VARIANT_TYPE_UINT32)) {
    prefersLessMotion = g_variant_get_uint32(value) == 1;
  } else if (is(gnome, "color-scheme", G_VARIANT_TYPE_STRING)) {
    const std::string_view scheme = g_variant_get_string(value, nullptr);
    if (!prefersDark && scheme != "default") {
      prefersDark = scheme == "prefer-dark";
    }
  } else if (is(gnome, "gtk-theme", G_VARIANT_TYPE_STRING)) {
    themeName = g_variant_get_string(value, nullptr);
  } else if (is(gnome, "enable-animations", G_VARIANT_TYPE_BOOLEAN)) {
    animations = g_variant_get_boolean(value) != 0;
  } else if (is(gnome, "text-scaling-factor", G_VARIANT_TYPE_DOUBLE)) {
    textScale = g_variant_get_double(value);
  } else if (is("org.gnome.desktop.a11y.interface", "high-contrast", G_VARIANT_TYPE_BOOLEAN)) {
    highContrast = g_variant_get_boolean(value) != 0;
  }
}

DesktopAppearance AppearanceSettings::resolved(const AppearanceSettings& others) const {
  const auto theme = lowercased(themeName.empty() ? others.themeName : themeName);
  const bool contrast = first(prefersContrast, others.prefersContrast).value_or(false) ||
                        first(highContrast, others.highContrast).value_or(false) ||
                        contains(theme, "highcontrast");
  const bool lessMotion = first(prefersLessMotion, others.prefersLessMotion).value_or(false) ||
                          !first(animations, others.animations).value_or(true);
  const double scale = first(textScale, others.textScale).value_or(1.0);
  return {.dark = first(prefersDark, others.prefersDark)
                      .value_or(contains(theme, "dark") || contains(theme, "inverse")),
          .increasedContrast = contrast,
          .reducedMotion = lessMotion,
          .textScale = scale > 0 ? std::clamp(scale, 0.5, 4.0) : 1.0};
}

AppearanceSettings appearanceSettingsInFiles(const XdgFolders& folders) {
  AppearanceSettings settings;
  const bool onKde = contains(folders.currentDesktop, "KDE");
  // KDE's files may be left over from another desktop, so elsewhere they come last.
  if (onKde) {
    readKde(folders, settings);
  }
  readGSettings(folders, settings);
  readGtk(folders, settings);
  if (!onKde) {
    readKde(folders, settings);
  }
  return settings;
}

}  // namespace glintboard
