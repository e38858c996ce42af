// SPDX-License-Identifier: MIT
// Runs the built-in actions.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <variant>

#include "agent_core/actions/volume_controlling.h"
#include "protocol/payloads.h"

namespace glintboard {

namespace SystemActionResult {
struct Ok {
  std::string actionId;
  bool operator==(const Ok&) const = default;
};
struct Error {
  std::string actionId;
  ActionErrorCode code{};
  std::optional<std::string> message;
  bool operator==(const Error&) const = default;
};
using Result = std::variant<Ok, Error>;
}  // namespace SystemActionResult

// Runs built-in actions. Stateless: copies share the volume controller. Use it on the volume lane,
// which it blocks for up to two seconds.
class SystemActionRunner {
 public:
  explicit SystemActionRunner(std::shared_ptr<VolumeControlling> volume)
      : volume_(std::move(volume)) {}
  // With a CoreAudioVolumeController on the live platform.
  SystemActionRunner();

  // Never throws: every failure is a result.
  SystemActionResult::Result perform(const std::string& actionId) const;

 private:
  std::shared_ptr<VolumeControlling> volume_;
};

}  // namespace glintboard
