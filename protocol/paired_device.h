// SPDX-License-Identifier: MIT
// The phone that this computer trusts, as the keychain item or file of paired devices stores it.
#pragma once

#include <string>

#include "protocol/record.h"
#include "protocol/uuid.h"
#include "protocol/wire_date.h"

namespace glintboard {

// The bearer credential of one paired phone: whoever presents it is that phone, so it is never
// logged or shown. Stored as an object with the one key "value".
struct DeviceToken {
  // A random UUID in upper case when the agent made it; compared as text.
  std::string value;
  bool operator==(const DeviceToken&) const = default;
};
BOOST_DESCRIBE_STRUCT(DeviceToken, (), (value))

// Stored as an object of these members, all required.
struct PairedDevice {
  // The phone's own identity, the same across pairings.
  Uuid id{};
  // The name that the phone gave itself.
  std::string name;
  DeviceToken token;
  // By the computer's clock, in seconds since 2001.
  ReferenceDate pairedAt;
  bool operator==(const PairedDevice&) const = default;
};
BOOST_DESCRIBE_STRUCT(PairedDevice, (), (id, name, token, pairedAt))

}  // namespace glintboard
