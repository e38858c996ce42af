// SPDX-License-Identifier: MIT
// The pairing address in the QR code.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "protocol/record.h"

namespace glintboard {

// What the QR code carries: glintboard://pair?v=1&name=Studio%20Mac&code=C, the values
// percent-encoded UTF-8. The protocol was made for a Mac, hence `macName`.
struct PairingQRPayload {
  // The computer's display name (`name`).
  std::string macName;
  // The current pairing code (`code`), 43 characters.
  std::string code;
  // Of the address's format (`v`). The agent writes 1; other versions are read too.
  std::int64_t version = 1;

  // The pairing address; none if the name or the code is not UTF-8.
  std::optional<std::string> encodedURL() const;
  // The payload of a scanned address, white space around it ignored. None if the scheme or host is
  // another, if `v`, `name` or `code` is missing or occurs twice, if name or code is empty or not
  // UTF-8, or if `v` is no integer.
  static std::optional<PairingQRPayload> parse(std::string_view text);

  bool operator==(const PairingQRPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(PairingQRPayload, (), (version, macName, code))

}  // namespace glintboard
