// SPDX-License-Identifier: MIT
// The phone's stored identity and pairing.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "protocol/record.h"
#include "protocol/uuid.h"

namespace glintboard::phone {

// On disk: phone.json, an object of these members; optional ones may be absent.
struct PhoneState {
  Uuid deviceId{};                       // created once, kept across pairings
  std::optional<std::string> token;      // of the current pairing
  std::optional<std::string> agentName;  // of the paired agent's advertisement

  bool operator==(const PhoneState&) const = default;
};
BOOST_DESCRIBE_STRUCT(PhoneState, (), (deviceId, token, agentName))

// The state file of one folder.
class PhoneStateFile {
 public:
  explicit PhoneStateFile(const std::filesystem::path& folder) : folder_(folder) {}

  // The stored state; a new device id without a pairing if there is no file. Throws PhoneFailure
  // "state" for a damaged file, so that the device id is never replaced silently, and
  // std::system_error if the file cannot be read.
  PhoneState load() const;
  // Writes atomically, readable by the user alone; creates the folder with mode 0700. Throws
  // std::system_error.
  void save(const PhoneState& state) const;

  std::filesystem::path path() const { return folder_ / "phone.json"; }

 private:
  std::filesystem::path folder_;
};

// $XDG_STATE_HOME/glintboard-phone, else ~/.local/state/glintboard-phone. Throws PhoneFailure
// "state" if the user has no home folder.
std::filesystem::path defaultStateFolder();

}  // namespace glintboard::phone
