// SPDX-License-Identifier: MIT
#include "protocol/pairing_engine.h"

#include <algorithm>

#include "protocol/glintboard_service.h"

namespace glintboard {
namespace {

bool isWellFormed(std::string_view pin) {
  return pin.size() == static_cast<std::size_t>(GlintboardService::pinLength) &&
         std::ranges::all_of(pin, [](char digit) { return digit >= '0' && digit <= '9'; });
}

}  // namespace

PairingEngine::Result PairingEngine::check(std::string_view pin, std::string_view expected) {
  if (isLockedOut()) {
    return PINCheckResult::Lockout{};
  }
  if (isWellFormed(pin) && pin == expected) {
    failedAttempts_ = 0;
    return PINCheckResult::Accepted{};
  }
  ++failedAttempts_;
  if (isLockedOut()) {
    return PINCheckResult::Lockout{};
  }
  return PINCheckResult::InvalidPIN{remainingAttempts()};
}

bool PairingEngine::isLockedOut() const {
  return failedAttempts_ >= GlintboardService::maxPinAttempts;
}

int PairingEngine::remainingAttempts() const {
  return std::max(0, GlintboardService::maxPinAttempts - failedAttempts_);
}

}  // namespace glintboard
