// SPDX-License-Identifier: MIT
// What a desktop's settings say about the look of windows.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/desktop_appearance.h"
#include "platform/linux/base/glib_pointers.h"
#include "platform/linux/base/xdg_folders.h"

namespace glintboard {

// Each setting where it is known.
struct AppearanceSettings {
  std::optional<bool> prefersDark;  // none: no preference
  std::optional<bool> prefersContrast;
  std::optional<bool> prefersLessMotion;
  std::optional<bool> highContrast;
  std::optional<bool> animations;
  std::optional<double> textScale;
  std::string themeName;

  // Takes one setting of the desktop portal, with its namespace; others are ignored.
  void take(std::string_view space, std::string_view key, GVariant* value);
  // The look; what is not known here is as `others` say.
  DesktopAppearance resolved(const AppearanceSettings& others) const;
};

// What the files of GTK and KDE and the environment say. Blocks on the disk.
AppearanceSettings appearanceSettingsInFiles(const XdgFolders& folders);

}  // namespace glintboard
