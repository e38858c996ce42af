// SPDX-License-Identifier: MIT
// Points in time, as the wire and as stored pairings write them. Any thread.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace glintboard {

// On the wire: ISO 8601 text in UTC to whole seconds, "2026-11-16T16:25:42Z".
struct WireDate {
  std::chrono::sys_seconds time;

  // By the computer's wall clock, rounded down.
  static WireDate now();
  // None for any other form: fractional seconds, other time zones, days that do not exist.
  static std::optional<WireDate> parse(std::string_view text);
  // The form above. Defined for the years 0000 to 9999.
  std::string text() const;

  bool operator==(const WireDate&) const = default;
};

// In storage: seconds since 2001-01-01T00:00:00Z, a JSON number. It is the reference date of macOS,
// whose pairings this format was made for.
struct ReferenceDate {
  double secondsSinceReference = 0;

  // By the computer's wall clock, with fractions of a second.
  static ReferenceDate now();
  bool operator==(const ReferenceDate&) const = default;
};

}  // namespace glintboard
