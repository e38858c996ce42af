// SPDX-License-Identifier: MIT
// The icons of installed applications.
#pragma once

#include <QImage>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>

#include "platform/workspace_client.h"

namespace glintboard {

// What an update of an application or of the icon theme would change. Equal values mean that the
// icon still looks the same.
struct ContentModification {
  std::filesystem::file_time_type entryModified;
  std::filesystem::path iconFile;  // empty without an icon
  std::filesystem::file_time_type iconModified;
  std::uint64_t iconInode = 0;
  bool operator==(const ContentModification&) const = default;
};

// Both operations read files: call them on a worker. Safe on any thread; neither throws.
struct ApplicationIconClient {
  // None when it cannot be read.
  std::function<std::optional<ContentModification>(const ApplicationLocation&)> contentModification;
  // The icon drawn into a square of `side` pixels, fitted and centred on transparency; a null
  // image when there is none.
  std::function<QImage(const ApplicationLocation&, int side)> image;
};

}  // namespace glintboard
