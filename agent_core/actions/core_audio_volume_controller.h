// SPDX-License-Identifier: MIT
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
  // `status` is the sound system's own code; it has none for a missing device.
  explicit CoreAudioVolumeError(Code code, std::int32_t status = 0);

  Code code;
  std::int32_t status;
};

// Moves the volume of the default output device, which is looked up anew for each operation.
// Use it on the volume lane.
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
