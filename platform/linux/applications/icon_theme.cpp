// SPDX-License-Identifier: MIT
#include "platform/linux/applications/icon_theme.h"

#include <algorithm>
#include <set>
#include <sstream>
#include <tuple>

#include "platform/linux/base/key_file.h"

namespace glintboard {

namespace {

namespace fs = std::filesystem;

constexpr int wantedSize = 128;

// A folder that the index lists.
struct Listed {
  std::string name;
  // From the wanted size; 0 is best.
  int distance = 0;
  bool scalable = false;
};

Listed listed(std::string name, int smallest, int largest, bool scalable) {
  // Icons that are too small are worse than any that is too large.
  constexpr int tooSmall = 10'000'000;
  const int distance = smallest > wantedSize  ? smallest - wantedSize
                       : largest < wantedSize ? tooSmall - largest
                                              : 0;
  return {std::move(name), distance, scalable};
}

Listed listedIn(GKeyFile* index, const std::string& name) {
  const char* group = name.c_str();
  const auto number = [&](const char* key, int fallback) {
    return std::clamp(numberOf(index, group, key, fallback), 0, 100'000);
  };
  const std::string type = textOf(index, group, "Type");
  const int scale = std::clamp(number("Scale", 1), 1, 16);
  const int size = number("Size", 0);
  if (type == "Scalable") {
    return listed(name, number("MinSize", size) * scale, number("MaxSize", size) * scale, true);
  }
  const int slack = type == "Fixed" ? 0 : number("Threshold", 2);
  return listed(name, (size - slack) * scale, (size + slack) * scale, false);
}

// The folders of hicolor, which applications install icons into even if its index is missing.
std::vector<Listed> usualFoldersOfHicolor() {
  std::vector<Listed> folders{listed("scalable/apps", 1, 512, true)};
  for (const int size : {16, 22, 24, 32, 36, 48, 64, 72, 96, 128, 192, 256, 512, 1024}) {
    std::ostringstream name;
    name << size << 'x' << size << "/apps";
    folders.push_back(listed(name.str(), size, size, false));
  }
  return folders;
}

// Records the folders on the path to `folder`. Returns whether it exists; `missing` has the folders
// known not to exist.
bool noteFolder(const fs::path& root, const fs::path& folder, FileStamps& stamps,
                std::set<fs::path>& missing) {
  fs::path reached = root;
  for (const auto& part : folder) {
    reached /= part;
    std::error_code ignored;
    // The parent's modification time changes when a missing folder is created.
    if (missing.contains(reached) || !fs::is_directory(reached, ignored)) {
      missing.insert(reached);
      return false;
    }
    stamps.note(reached);
  }
  return true;
}

}  // namespace

IconTheme readIconTheme(const std::string& name, const std::vector<fs::path>& bases,
                        FileStamps& stamps) {
  constexpr std::size_t mostFolders = 4096;
  IconTheme theme;
  std::vector<fs::path> roots;
  GLibPointer<GKeyFile> index;
  for (const auto& base : bases) {
    const auto root = base / name;
    stamps.note(base);
    if (!stamps.note(root)) {
      continue;
    }
    roots.push_back(root);
    if (!index && stamps.note(root / "index.theme")) {
      index = loadKeyFile(root / "index.theme");
    }
  }

  std::vector<Listed> folders;
  if (index) {
    theme.parents = commaListOf(index.get(), "Icon Theme", "Inherits");
    for (const char* key : {"Directories", "ScaledDirectories"}) {
      for (const auto& folder : commaListOf(index.get(), "Icon Theme", key)) {
        if (!folder.starts_with('/') && folders.size() < mostFolders) {
          folders.push_back(listedIn(index.get(), folder));
        }
      }
    }
  } else if (name == "hicolor") {
    folders = usualFoldersOfHicolor();
  }
  std::stable_sort(folders.begin(), folders.end(), [](const Listed& one, const Listed& other) {
    return std::tuple(one.distance, !one.scalable) < std::tuple(other.distance, !other.scalable);
  });

  std::set<fs::path> missing;
  for (const auto& folder : folders) {
    for (const auto& root : roots) {
      if (noteFolder(root, folder.name, stamps, missing)) {
        theme.folders.push_back(root / folder.name);
      }
    }
  }
  return theme;
}

}  // namespace glintboard
