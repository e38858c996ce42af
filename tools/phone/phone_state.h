// SPDX-License-Identifier: MIT
// What the phone keeps between two runs.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "protocol/record.h"
#include "protocol/uuid.h"

namespace glintboard::phone {

// On disk: phone.json, an object of these members; optional ones may be absent.
struct PhoneState {
  Uuid deviceId{};                       // made once, kept across pairings
  std::optional<std::string> token;      // of the current pairing
  std::optional<std::string> agentName;  // under which the paired agent advertises itself

  bool operator==(const PhoneState&) const = default;
};
BOOST_DESCRIBE_STRUCT(PhoneState, (), (deviceId, token, agentName))

// The state file of one folder.
class PhoneStateFile {
 public:
  explicit PhoneStateFile(const std::filesystem::path& folder) : folder_(folder) {}

  // The stored state, or a new device without a pairing where nothing is stored. Throws
  // PhoneFailure for a file that is not a phone's state, so that its device id is never replaced
  // unasked, and std::system_error for one that cannot be read.
  PhoneState load() const;
  // Creates the folder, for the user alone, where it is missing. Throws std::system_error.
  void save(const PhoneState& state) const;

  std::filesystem::path path() const { return folder_ / "phone.json"; }

 private:
  std::filesystem::path folder_;
};

// $XDG_STATE_HOME/glintboard-phone, or the same below ~/.local/state. Throws PhoneFailure for a
// user without a home.
std::filesystem::path defaultStateFolder();

}  // namespace glintboard::phone
