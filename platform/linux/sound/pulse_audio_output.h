// SPDX-License-Identifier: MIT
// The sound output of PulseAudio, or of PipeWire, which implements the same protocol.
#pragma once

#include "platform/audio_output.h"

namespace glintboard {

// Connects for each call, so that it needs no thread and survives a restart of the server. A device
// has its own connection and is usable for two seconds. AudioError has libpulse's error codes. A
// device is for one thread.
class PulseAudioOutput : public AudioOutput {
 public:
  std::unique_ptr<AudioOutputDevice> defaultOutputDevice() override;
};

}  // namespace glintboard
