// SPDX-License-Identifier: MIT
// One icon theme, as its index file describes it.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/linux/base/file_stamps.h"

namespace glintboard {

struct IconTheme {
  // The themes to look in when this one lacks an icon.
  std::vector<std::string> parents;
  // The existing folders of icons, best first for a square of 128 pixels: scalable ones and those
  // made for that size, then the smallest larger ones, then the largest smaller ones.
  std::vector<std::filesystem::path> folders;
};

// Reads the theme `name` from those of the folders `bases` that hold it, and notes in `stamps` what
// would change it. A theme that is missing or damaged has no folders. Blocks on the disk.
IconTheme readIconTheme(const std::string& name, const std::vector<std::filesystem::path>& bases,
                        FileStamps& stamps);

}  // namespace glintboard
