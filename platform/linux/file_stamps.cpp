#include "platform/linux/file_stamps.h"

#include <algorithm>

namespace glintboard {

bool FileStamps::note(const std::filesystem::path& path) {
  const auto [noted, isNew] = stamps_.try_emplace(path);
  if (isNew) {
    noted->second = stampOf(path);
  }
  return noted->second.has_value();
}

bool FileStamps::unchanged() const {
  return !stamps_.empty() && std::all_of(stamps_.begin(), stamps_.end(), [](const auto& noted) {
    return stampOf(noted.first) == noted.second;
  });
}

FileStamps::Stamp FileStamps::stampOf(const std::filesystem::path& path) {
  std::error_code error;
  const auto modified = std::filesystem::last_write_time(path, error);
  return error ? std::nullopt : Stamp(modified);
}

}  // namespace glintboard
