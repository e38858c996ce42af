// SPDX-License-Identifier: MIT
// The sound device that the user hears.
#pragma once

#include <cstdint>
#include <memory>
#include <stdexcept>

namespace glintboard {

// A call to the sound system failed with this code of its own.
class AudioError : public std::runtime_error {
 public:
  explicit AudioError(std::int32_t code) : std::runtime_error("audio error"), status(code) {}
  std::int32_t status;
};

// One output device. Volume is linear: 0 is silence, 1 is 100 %. Setting it moves all channels
// together and keeps their balance. Every operation throws AudioError when it fails.
class AudioOutputDevice {
 public:
  virtual ~AudioOutputDevice() = default;
  virtual float volume() = 0;
  virtual void setVolume(float volume) = 0;
  virtual bool isMuted() = 0;
  virtual void setMuted(bool muted) = 0;
};

class AudioOutput {
 public:
  virtual ~AudioOutput() = default;
  // The default output device as it is now, or null when there is no device or no sound system.
  // Blocks for at most two seconds, the device's operations included: use it on the volume lane.
  virtual std::unique_ptr<AudioOutputDevice> defaultOutputDevice() = 0;
};

}  // namespace glintboard
