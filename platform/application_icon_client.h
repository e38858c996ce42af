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

// A fingerprint of an application's icon. Equal values mean equal images; an update of the
// application or of the icon theme changes it.
struct ContentModification {
  std::filesystem::file_time_type entryModified;
  std::filesystem::path iconFile;  // empty without an icon
  std::filesystem::file_time_type iconModified;
  std::uint64_t iconInode = 0;
  bool operator==(const ContentModification&) const = default;
};

// Both operations read files: call them on a worker. Thread-safe; neither throws.
struct ApplicationIconClient {
  // The fingerprint now; none when the application is not installed.
  std::function<std::optional<ContentModification>(const ApplicationLocation&)> contentModification;
  // The icon drawn into a transparent square of `side` pixels, fitted and centred; a null image
  // when the application has no icon.
  std::function<QImage(const ApplicationLocation&, int side)> image;
};

}  // namespace glintboard
