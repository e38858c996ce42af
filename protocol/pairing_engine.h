// SPDX-License-Identifier: MIT
// The rule that judges PINs.
#pragma once

#include <string_view>
#include <variant>

namespace glintboard {

namespace PINCheckResult {
// The PIN was wrong or malformed; so many attempts remain.
struct InvalidPIN {
  int remainingAttempts = 0;
  bool operator==(const InvalidPIN&) const = default;
};
struct Accepted {
  bool operator==(const Accepted&) const = default;
};
// Pairing by PIN is locked.
struct Lockout {
  bool operator==(const Lockout&) const = default;
};
}  // namespace PINCheckResult

// Counts failed attempts and locks pairing by PIN after the fifth; it never unlocks by time.
class PairingEngine {
 public:
  using Result =
      std::variant<PINCheckResult::InvalidPIN, PINCheckResult::Accepted, PINCheckResult::Lockout>;

  explicit PairingEngine(int failedAttempts = 0) : failedAttempts_(failedAttempts) {}

  // A malformed PIN costs an attempt as a wrong one does. Once locked out, even the right PIN is
  // refused and nothing is counted.
  Result check(std::string_view pin, std::string_view expected);

  int failedAttempts() const { return failedAttempts_; }
  bool isLockedOut() const;
  int remainingAttempts() const;
  void resetAttempts() { failedAttempts_ = 0; }

  bool operator==(const PairingEngine&) const = default;

 private:
  int failedAttempts_;
};

}  // namespace glintboard
