// SPDX-License-Identifier: MIT
// The volume keys on the default output device.
#pragma once

#include <cstdint>
#include <stdexcept>

#include "agent_core/actions/volume_controlling.h"
#include "platform/audio_output.h"

namespace glintboard {

class CoreAudioVolumeError : public std::runtime_error {
 public:
  enum class Code {
    readVolumeFailed,
    writeVolumeFailed,
    readMuteFailed,
    writeMuteFailed,
    noOutputDevice,
  };
  // `status` is the sound system's own error code; 0 for a missing device.
  explicit CoreAudioVolumeError(Code code, std::int32_t status = 0);

  Code code;
  std::int32_t status;
};

// Changes the volume of the default output device, which each operation looks up again. Use it on
// the volume lane. Throws CoreAudioVolumeError. The name is the role's in the system's design,
// which was made for a Mac; it works with every AudioOutput.
class CoreAudioVolumeController : public VolumeControlling {
 public:
  // `step` is a fraction of full scale. `output` must outlive the controller.
  explicit CoreAudioVolumeController(AudioOutput& output, float step = 0.0625F)
      : output_(output), step_(step) {}

  // A step that leaves the volume above 0 also unmutes, downwards as well as upwards.
  void volumeUp() override { changeVolume(step_); }
  void volumeDown() override { changeVolume(-step_); }
  void toggleMute() override;

 private:
  void changeVolume(float difference);
  std::unique_ptr<AudioOutputDevice> device();

  AudioOutput& output_;
  float step_;
};

}  // namespace glintboard
