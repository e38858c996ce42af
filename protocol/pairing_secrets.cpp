// SPDX-License-Identifier: MIT
#include "protocol/pairing_secrets.h"

#include <array>

#include "protocol/base64.h"
#include "protocol/glintboard_service.h"
#include "protocol/secure_random.h"

namespace glintboard {

std::string PINGenerator::generate() {
  std::uint32_t number = 0;
  secureRandomBytes(std::as_writable_bytes(std::span(&number, 1)));
  return format(number % 1'000'000);
}

std::string PINGenerator::format(std::int64_t number) {
  std::string digits = std::to_string(number);
  constexpr auto length = static_cast<std::size_t>(GlintboardService::pinLength);
  if (digits.size() < length) {
    // Behind the sign.
    digits.insert(number < 0 ? 1 : 0, length - digits.size(), '0');
  }
  return digits;
}

std::string PairingCodeGenerator::generate() {
  std::array<char, GlintboardService::pairingCodeBytes> bytes{};
  secureRandomBytes(std::as_writable_bytes(std::span(bytes)));
  std::string code = base64Encode({bytes.data(), bytes.size()});
  for (char& character : code) {
    character = character == '+' ? '-' : character == '/' ? '_' : character;
  }
  std::erase(code, '=');
  return code;
}

bool PairingSecret::matches(std::string_view provided, std::string_view expected) {
  if (provided.size() != expected.size()) {
    return false;
  }
  unsigned char difference = 0;
  for (std::size_t i = 0; i < provided.size(); ++i) {
    difference |= static_cast<unsigned char>(provided[i]) ^ static_cast<unsigned char>(expected[i]);
  }
  return difference == 0;
}

}  // namespace glintboard
