// SPDX-License-Identifier: MIT
// Moments in time, as the wire and as stored pairings write them.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace glintboard {

// On the wire: ISO 8601 text in UTC to whole seconds, "2026-11-16T16:25:42Z".
struct WireDate {
  std::chrono::sys_seconds time;

  static WireDate now();
  // None for any other form, fractional seconds included.
  static std::optional<WireDate> parse(std::string_view text);
  // The years 0000 to 9999 only.
  std::string text() const;

  bool operator==(const WireDate&) const = default;
};

// In storage: seconds since 2001-01-01T00:00:00Z.
struct ReferenceDate {
  double secondsSinceReference = 0;

  static ReferenceDate now();
  bool operator==(const ReferenceDate&) const = default;
};

}  // namespace glintboard
