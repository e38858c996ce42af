// SPDX-License-Identifier: MIT
#include "platform/linux/sound/pulse_audio_output.h"

#include <pulse/def.h>
#include <pulse/error.h>
#include <pulse/introspect.h>
#include <pulse/volume.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/linux/sound/pulse_connection.h"
#include "platform/log.h"

namespace glintboard {
namespace {

struct Sink {
  std::uint32_t index = PA_INVALID_INDEX;
  pa_cvolume volume{};
  bool muted = false;
};

void keepDefaultName(pa_context*, const pa_server_info* server, void* name) {
  if (server != nullptr && server->default_sink_name != nullptr) {
    *static_cast<std::string*>(name) = server->default_sink_name;
  }
}

void keepSink(pa_context*, const pa_sink_info* info, int, void* sink) {
  if (info != nullptr) {
    *static_cast<std::optional<Sink>*>(sink) = Sink{info->index, info->volume, info->mute != 0};
  }
}

void keepSuccess(pa_context*, int success, void* done) {
  *static_cast<bool*>(done) = success != 0;
}

class PulseDevice : public AudioOutputDevice {
 public:
  PulseDevice(std::unique_ptr<PulseConnection> connection, std::uint32_t index)
      : connection_(std::move(connection)), index_(index) {}

  float volume() override {
    const Sink sink = read();
    return static_cast<float>(static_cast<double>(::pa_cvolume_max(&sink.volume)) / PA_VOLUME_NORM);
  }

  void setVolume(float volume) override {
    const double target = std::clamp<double>(
        std::isnan(volume) ? 0 : std::round(double{volume} * PA_VOLUME_NORM), 0, PA_VOLUME_MAX);
    pa_cvolume channels = read().volume;
    const double loudest = ::pa_cvolume_max(&channels);
    for (std::uint8_t i = 0; i < channels.channels; ++i) {
      // At volume 0 the balance is unknown.
      const double share = loudest > 0 ? channels.values[i] / loudest : 1;
      channels.values[i] = static_cast<pa_volume_t>(std::lround(target * share));
    }
    bool done = false;
    connection_->finish(::pa_context_set_sink_volume_by_index(connection_->context(), index_,
                                                              &channels, keepSuccess, &done));
    expect(done);
  }

  bool isMuted() override { return read().muted; }

  void setMuted(bool muted) override {
    bool done = false;
    connection_->finish(::pa_context_set_sink_mute_by_index(connection_->context(), index_,
                                                            muted ? 1 : 0, keepSuccess, &done));
    expect(done);
  }

 private:
  Sink read() {
    std::optional<Sink> sink;
    connection_->finish(
        ::pa_context_get_sink_info_by_index(connection_->context(), index_, keepSink, &sink));
    expect(sink.has_value());
    return *sink;
  }

  void expect(bool done) {
    if (!done) {
      connection_->fail();
    }
  }

  std::unique_ptr<PulseConnection> connection_;
  std::uint32_t index_;
};

}  // namespace

std::unique_ptr<AudioOutputDevice> PulseAudioOutput::defaultOutputDevice() {
  try {
    auto connection = std::make_unique<PulseConnection>();
    std::string name;
    connection->finish(::pa_context_get_server_info(connection->context(), keepDefaultName, &name));
    if (name.empty()) {
      return nullptr;
    }
    std::optional<Sink> sink;
    connection->finish(
        ::pa_context_get_sink_info_by_name(connection->context(), name.c_str(), keepSink, &sink));
    if (!sink) {
      return nullptr;
    }
    return std::make_unique<PulseDevice>(std::move(connection), sink->index);
  } catch (const AudioError& error) {
    log::info("cannot use the sound server: ", ::pa_strerror(error.status));
    return nullptr;
  }
}

}  // namespace glintboard
