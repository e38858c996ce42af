// SPDX-License-Identifier: MIT
// Reads the index files of icon themes.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/linux/base/file_stamps.h"

namespace glintboard {

struct IconTheme {
  // The themes to search for icons that this one lacks.
  std::vector<std::string> parents;
  // The existing icon folders, the best for a square of 128 pixels first: scalable ones and those
  // of that size, then larger sizes in ascending order, then smaller sizes in descending order.
  std::vector<std::filesystem::path> folders;
};

// Reads the theme `name` from the folders `bases`, and records in `stamps` the files and folders
// that the result depends on. A missing or damaged theme has no folders. Blocks on the disk.
IconTheme readIconTheme(const std::string& name, const std::vector<std::filesystem::path>& bases,
                        FileStamps& stamps);

}  // namespace glintboard
