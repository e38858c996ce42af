// SPDX-License-Identifier: MIT
#include "platform/linux/base/file_stamps.h"

#include <algorithm>
#include <chrono>

namespace glintboard {

bool FileStamps::note(const std::filesystem::path& path) {
  const auto [noted, isNew] = stamps_.try_emplace(path);
  if (isNew) {
    // The clock of modification times advances only every few milliseconds.
    constexpr std::chrono::milliseconds clockTick{100};
    noted->second = stampOf(path);
    settled_ = settled_ && (!noted->second || std::chrono::abs(Stamp::value_type::clock::now() -
                                                               *noted->second) > clockTick);
  }
  return noted->second.has_value();
}

void FileStamps::noteFolder(const std::filesystem::path& folder) {
  note(folder);
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    note(entry->path());
  }
}

bool FileStamps::unchanged() const {
  return settled_ && !stamps_.empty() &&
         std::all_of(stamps_.begin(), stamps_.end(),
                     [](const auto& noted) { return stampOf(noted.first) == noted.second; });
}

FileStamps::Stamp FileStamps::stampOf(const std::filesystem::path& path) {
  std::error_code error;
  const auto modified = std::filesystem::last_write_time(path, error);
  return error ? std::nullopt : Stamp(modified);
}

}  // namespace glintboard
