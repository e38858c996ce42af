// SPDX-License-Identifier: MIT
#include "agent_core/actions/core_audio_volume_controller.h"

#include <algorithm>
#include <string>

namespace glintboard {
namespace {

using Code = CoreAudioVolumeError::Code;

std::string description(Code code, std::int32_t status) {
  const std::string suffix = " (error " + std::to_string(status) + ").";
  switch (code) {
    case Code::readVolumeFailed:
      return "Could not read volume" + suffix;
    case Code::writeVolumeFailed:
      return "Could not change volume" + suffix;
    case Code::readMuteFailed:
      return "Could not read mute state" + suffix;
    case Code::writeMuteFailed:
      return "Could not toggle mute" + suffix;
    case Code::noOutputDevice:
      break;
  }
  return "No audio output device found.";
}

template <class Call>
auto reporting(Code code, Call call) {
  try {
    return call();
  } catch (const AudioError& error) {
    throw CoreAudioVolumeError(code, error.status);
  }
}

}  // namespace

CoreAudioVolumeError::CoreAudioVolumeError(Code givenCode, std::int32_t givenStatus)
    : std::runtime_error(description(givenCode, givenStatus)),
      code(givenCode),
      status(givenStatus) {}

void CoreAudioVolumeController::changeVolume(float difference) {
  const auto output = device();
  const float current = reporting(Code::readVolumeFailed, [&] { return output->volume(); });
  const float target = std::clamp(current + difference, 0.0F, 1.0F);
  reporting(Code::writeVolumeFailed, [&] { output->setVolume(target); });
  if (target > 0) {
    reporting(Code::writeMuteFailed, [&] { output->setMuted(false); });
  }
}

void CoreAudioVolumeController::toggleMute() {
  const auto output = device();
  const bool muted = reporting(Code::readMuteFailed, [&] { return output->isMuted(); });
  reporting(Code::writeMuteFailed, [&] { output->setMuted(!muted); });
}

std::unique_ptr<AudioOutputDevice> CoreAudioVolumeController::device() {
  auto found = output_.defaultOutputDevice();
  if (!found) {
    throw CoreAudioVolumeError(Code::noOutputDevice);
  }
  return found;
}

}  // namespace glintboard
