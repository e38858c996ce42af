// SPDX-License-Identifier: MIT
// The sound device of PulseAudio, or of PipeWire, which speaks the same protocol.
#pragma once

#include "platform/audio_output.h"

namespace glintboard {

// Asks the server afresh each time, so that it needs no thread and notices a restart. A device
// keeps its connection until it is destroyed, and is of use for two seconds. AudioError carries
// libpulse's error numbers. One device is for one thread.
class PulseAudioOutput : public AudioOutput {
 public:
  std::unique_ptr<AudioOutputDevice> defaultOutputDevice() override;
};

}  // namespace glintboard
