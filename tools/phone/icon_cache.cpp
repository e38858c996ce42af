// SPDX-License-Identifier: MIT
#include "tools/phone/icon_cache.h"

#include <system_error>

#include "platform/atomic_file.h"
#include "protocol/mac_icon_sync_policy.h"
#include "protocol/sha256.h"

namespace glintboard::phone {
namespace {

// File systems allow 255 bytes; the rest is for the extension and temporary suffixes.
constexpr std::size_t longestName = 200;

bool isPlain(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
         c == '_' || c == '.';
}

std::string fileName(const std::string& key) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string name;
  for (const char c : key) {
    if (isPlain(c) && (c != '.' || !name.empty())) {
      name += c;
      continue;
    }
    const auto byte = static_cast<unsigned char>(c);
    name.append(1, '%').append(1, digits[byte >> 4U]).append(1, digits[byte & 0xFU]);
  }
  // Cannot collide: no escaped name begins with "%-".
  return !name.empty() && name.size() <= longestName ? name : "%-" + sha256Hex(key);
}

}  // namespace

std::filesystem::path IconCache::file(const std::string& key) const {
  return folder_ / (fileName(MacIconSyncPolicy::normalized(key)) + ".png");
}

std::optional<std::string> IconCache::revision(const std::string& key) const {
  try {
    return sha256Hex(readWholeFile(file(key)));
  } catch (const std::system_error& error) {
    if (error.code() == std::errc::no_such_file_or_directory) {
      return std::nullopt;
    }
    throw;
  }
}

void IconCache::store(const std::string& key, std::string_view png) const {
  std::filesystem::create_directories(folder_);
  writeAtomically(file(key), png, 0644);
}

std::vector<std::string> IconCache::outdated(
    const std::vector<DeckTile>& tiles, const std::map<std::string, std::string>& revisions) const {
  return MacIconSyncPolicy::keysNeedingFetch(
      tiles, revisions, [this](const std::string& key) { return revision(key).has_value(); },
      [this](const std::string& key, const std::string& wanted) {
        return revision(key) != wanted;
      });
}

}  // namespace glintboard::phone
