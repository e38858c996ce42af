// SPDX-License-Identifier: MIT
#include "protocol/uuid.h"

#include <algorithm>
#include <array>

#include "protocol/secure_random.h"

namespace glintboard {
namespace {

constexpr std::array<std::size_t, 4> hyphenPositions = {8, 13, 18, 23};
constexpr std::size_t textLength = 36;

bool isHyphenPosition(std::size_t position) {
  return std::ranges::find(hyphenPositions, position) != hyphenPositions.end();
}

int hexDigitValue(char digit) {
  if (digit >= '0' && digit <= '9') {
    return digit - '0';
  }
  if (digit >= 'a' && digit <= 'f') {
    return digit - 'a' + 10;
  }
  if (digit >= 'A' && digit <= 'F') {
    return digit - 'A' + 10;
  }
  return -1;
}

}  // namespace

bool hasUuidShape(std::string_view text) {
  if (text.size() != textLength) {
    return false;
  }
  for (std::size_t i = 0; i < textLength; ++i) {
    if (isHyphenPosition(i) ? text[i] != '-' : hexDigitValue(text[i]) < 0) {
      return false;
    }
  }
  return true;
}

std::optional<Uuid> parseUuid(std::string_view text) {
  if (!hasUuidShape(text)) {
    return std::nullopt;
  }
  Uuid uuid;
  std::size_t position = 0;
  for (auto& byte : uuid) {
    if (isHyphenPosition(position)) {
      ++position;
    }
    byte = static_cast<std::uint8_t>(hexDigitValue(text[position]) << 4 |
                                     hexDigitValue(text[position + 1]));
    position += 2;
  }
  return uuid;
}

std::string uuidText(const Uuid& uuid) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string text;
  text.reserve(textLength);
  for (const auto byte : uuid) {
    if (isHyphenPosition(text.size())) {
      text += '-';
    }
    text += digits[byte >> 4];
    text += digits[byte & 0x0F];
  }
  return text;
}

Uuid randomUuid() {
  Uuid uuid;
  secureRandomBytes(std::as_writable_bytes(std::span(uuid.begin(), uuid.end())));
  uuid.data[6] = static_cast<std::uint8_t>((uuid.data[6] & 0x0F) | 0x40);
  uuid.data[8] = static_cast<std::uint8_t>((uuid.data[8] & 0x3F) | 0x80);
  return uuid;
}

}  // namespace glintboard
