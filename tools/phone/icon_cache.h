// SPDX-License-Identifier: MIT
// The icons that the phone has.
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
// the files are their own index: one that was changed or damaged counts as outdated.
class IconCache {
 public:
  explicit IconCache(std::filesystem::path folder) : folder_(std::move(folder)) {}

  // Where the icon of a key lies: a name that is a plain file on any system, different for keys
  // that differ.
  std::filesystem::path file(const std::string& key) const;
  // The revision of the icon as it lies there, or none. Throws std::system_error.
  std::optional<std::string> revision(const std::string& key) const;
  // Creates the folder where it is missing. Throws std::system_error.
  void store(const std::string& key, std::string_view png) const;

  // The keys of `tiles` whose icon is missing or is not of the revision given.
  std::vector<std::string> outdated(const std::vector<DeckTile>& tiles,
                                    const std::map<std::string, std::string>& revisions) const;

 private:
  std::filesystem::path folder_;
};

}  // namespace glintboard::phone
