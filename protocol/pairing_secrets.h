// SPDX-License-Identifier: MIT
// The secrets that a phone presents to be paired, and their comparison. Stateless; any thread.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace glintboard {

namespace PINGenerator {
// A new random PIN of six digits. Throws SecureRandomError.
std::string generate();
// The number in decimal, padded with zeros to `pinLength`. Not checked: it should be in 0 to
// 999,999.
std::string format(std::int64_t number);
}  // namespace PINGenerator

namespace PairingCodeGenerator {
// A new random pairing code: 43 characters of the URL-safe Base64 alphabet. Throws
// SecureRandomError.
std::string generate();
}  // namespace PairingCodeGenerator

namespace PairingSecret {
// Whether the two are equal. The time depends on their lengths alone, so that it reveals nothing
// about the expected secret.
bool matches(std::string_view provided, std::string_view expected);
}  // namespace PairingSecret

}  // namespace glintboard
