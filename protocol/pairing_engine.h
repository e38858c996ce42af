// SPDX-License-Identifier: MIT
// The rule that judges PINs. Not thread-safe; the pairing service owns the one engine.
#pragma once

#include <string_view>
#include <variant>

namespace glintboard {

namespace PINCheckResult {
// The PIN was wrong or malformed. At least one attempt remains.
struct InvalidPIN {
  int remainingAttempts = 0;
  bool operator==(const InvalidPIN&) const = default;
};
// The PIN was right; the count of failed attempts is zero again.
struct Accepted {
  bool operator==(const Accepted&) const = default;
};
// Pairing by PIN is locked, by this attempt or an earlier one.
struct Lockout {
  bool operator==(const Lockout&) const = default;
};
}  // namespace PINCheckResult

// Counts failed attempts and locks pairing by PIN after `maxPinAttempts` of them. Time does not
// unlock it; `resetAttempts` does.
class PairingEngine {
 public:
  using Result =
      std::variant<PINCheckResult::InvalidPIN, PINCheckResult::Accepted, PINCheckResult::Lockout>;

  // Starts with that many failed attempts.
  explicit PairingEngine(int failedAttempts = 0) : failedAttempts_(failedAttempts) {}

  // Compares a PIN from a phone with the PIN shown to the user. A malformed PIN costs an attempt as
  // a wrong one does. Once locked, even the right PIN is refused and nothing is counted.
  Result check(std::string_view pin, std::string_view expected);

  // Since the last success or reset; at most `maxPinAttempts` unless it began with more.
  int failedAttempts() const { return failedAttempts_; }
  bool isLockedOut() const;
  // Never negative.
  int remainingAttempts() const;
  void resetAttempts() { failedAttempts_ = 0; }

  bool operator==(const PairingEngine&) const = default;

 private:
  int failedAttempts_;
};

}  // namespace glintboard
