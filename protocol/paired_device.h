// SPDX-License-Identifier: MIT
// The phone that this computer trusts.
#pragma once

#include <string>

#include "protocol/record.h"
#include "protocol/uuid.h"
#include "protocol/wire_date.h"

namespace glintboard {

// The bearer credential of one paired phone. Stored as an object with the one key "value".
struct DeviceToken {
  std::string value;
  bool operator==(const DeviceToken&) const = default;
};
BOOST_DESCRIBE_STRUCT(DeviceToken, (), (value))

// Stored as an object of these members, all required.
struct PairedDevice {
  Uuid id{};  // the phone's own, the same across pairings
  std::string name;
  DeviceToken token;
  ReferenceDate pairedAt;
  bool operator==(const PairedDevice&) const = default;
};
BOOST_DESCRIBE_STRUCT(PairedDevice, (), (id, name, token, pairedAt))

}  // namespace glintboard
