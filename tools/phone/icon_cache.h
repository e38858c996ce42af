// SPDX-License-Identifier: MIT
// The icons that the phone has stored.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "protocol/deck_tile.h"

namespace glintboard::phone {

// A folder with one PNG file for each icon key. An icon's revision is the digest of its bytes, so
// no index is stored, and a changed or damaged file counts as outdated.
class IconCache {
 public:
  explicit IconCache(std::filesystem::path folder) : folder_(std::move(folder)) {}

  // The path of a key's icon. The name is safe on any file system and different for each key.
  std::filesystem::path file(const std::string& key) const;
  // The revision of the stored icon; none if there is no file. Throws std::system_error.
  std::optional<std::string> revision(const std::string& key) const;
  // Writes atomically; creates the folder. Throws std::system_error.
  void store(const std::string& key, std::string_view png) const;

  // The keys of `tiles` whose icon is missing or differs from its revision in `revisions`.
  std::vector<std::string> outdated(const std::vector<DeckTile>& tiles,
                                    const std::map<std::string, std::string>& revisions) const;

 private:
  std::filesystem::path folder_;
};

}  // namespace glintboard::phone
