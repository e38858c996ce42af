// SPDX-License-Identifier: MIT
// What a built-in action key does.
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

// Stateless. Blocks as long as the volume does.
class SystemActionRunner {
 public:
  // `volume` must outlive the runner.
  explicit SystemActionRunner(VolumeControlling& volume) : volume_(&volume, [](auto*) {}) {}
  // With a CoreAudioVolumeController on the live platform.
  SystemActionRunner();

  // Never throws: every failure is a result.
  SystemActionResult::Result perform(const std::string& actionId) const;

 private:
  std::shared_ptr<VolumeControlling> volume_;
};

}  // namespace glintboard
