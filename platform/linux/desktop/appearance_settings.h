// SPDX-License-Identifier: MIT
// The appearance settings in the files and the portal of a desktop.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/desktop_appearance.h"
#include "platform/linux/base/glib_pointers.h"
#include "platform/linux/base/xdg_folders.h"

namespace glintboard {

// The settings of one source. An absent setting is unknown.
struct AppearanceSettings {
  std::optional<bool> prefersDark;  // none: no preference
  std::optional<bool> prefersContrast;
  std::optional<bool> prefersLessMotion;
  std::optional<bool> highContrast;
  std::optional<bool> animations;
  std::optional<double> textScale;
  std::string themeName;

  // Stores one setting of the desktop portal's namespace `space`. Ignores unknown settings and
  // values of other types.
  void take(std::string_view space, std::string_view key, GVariant* value);
  // The appearance. Unknown settings are taken from `others`.
  DesktopAppearance resolved(const AppearanceSettings& others) const;
};

// The settings in the files of GTK, KDE and GSettings and in the environment. Blocks on the disk.
AppearanceSettings appearanceSettingsInFiles(const XdgFolders& folders);

}  // namespace glintboard
