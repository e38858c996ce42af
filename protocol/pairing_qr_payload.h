// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "protocol/record.h"

namespace glintboard {

// What the QR code carries, as the address glintboard://pair?v=1&name=Studio%20Mac&code=C.
struct PairingQRPayload {
  std::string macName;  // the computer's display name
  std::string code;     // the current pairing code
  std::int64_t version = 1;

  // The pairing address, or none when none can be formed (a name that is not UTF-8).
  std::optional<std::string> encodedURL() const;
  // The payload of a scanned address, white space around it ignored; none for anything else.
  static std::optional<PairingQRPayload> parse(std::string_view text);

  bool operator==(const PairingQRPayload&) const = default;
};
BOOST_DESCRIBE_STRUCT(PairingQRPayload, (), (version, macName, code))

}  // namespace glintboard
