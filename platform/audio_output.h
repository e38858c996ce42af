// SPDX-License-Identifier: MIT
// The default sound output device.
#pragma once

#include <cstdint>
#include <memory>
#include <stdexcept>

namespace glintboard {

// A failed call to the sound system. `status` is the sound system's own error code.
class AudioError : public std::runtime_error {
 public:
  explicit AudioError(std::int32_t code) : std::runtime_error("audio error"), status(code) {}
  std::int32_t status;
};

// One output device. The volume is linear: 0 is silence, 1 is 100 %. Setting it scales all channels
// and keeps their balance. Every operation throws AudioError on failure.
class AudioOutputDevice {
 public:
  virtual ~AudioOutputDevice() = default;
  // The volume of the loudest channel.
  virtual float volume() = 0;
  virtual void setVolume(float volume) = 0;
  virtual bool isMuted() = 0;
  virtual void setMuted(bool muted) = 0;
};

// The sound system. For one thread.
class AudioOutput {
 public:
  virtual ~AudioOutput() = default;
  // The current default output device; null without a device or a sound system. This call and the
  // device's operations together block for at most two seconds: use them on the volume lane.
  virtual std::unique_ptr<AudioOutputDevice> defaultOutputDevice() = 0;
};

}  // namespace glintboard
