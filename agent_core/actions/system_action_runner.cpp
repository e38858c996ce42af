// SPDX-License-Identifier: MIT
#include "agent_core/actions/system_action_runner.h"

#include "agent_core/actions/core_audio_volume_controller.h"
#include "platform/live.h"

namespace glintboard {

using namespace SystemActionResult;

SystemActionRunner::SystemActionRunner()
    : volume_(std::make_shared<CoreAudioVolumeController>(LivePlatform::current().audioOutput())) {}

Result SystemActionRunner::perform(const std::string& actionId) const {
  const auto action = fromRawValue<BuiltinAction>(actionId);
  if (!action) {
    return Error{actionId, ActionErrorCode::unknown, "Unknown action"};
  }
  try {
    switch (*action) {
      case BuiltinAction::volumeDown:
        volume_->volumeDown();
        break;
      case BuiltinAction::volumeUp:
        volume_->volumeUp();
        break;
      case BuiltinAction::volumeMute:
        volume_->toggleMute();
        break;
    }
  } catch (const std::exception& error) {
    return Error{actionId, ActionErrorCode::failed, error.what()};
  }
  return Ok{actionId};
}

}  // namespace glintboard
