// SPDX-License-Identifier: MIT
// The volume keys on the sound servers that desktops have.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <thread>

#include "agent_core/actions/core_audio_volume_controller.h"
#include "platform/atomic_file.h"
#include "platform/linux/sound/pulse_audio_output.h"
#include "platform/sound_settings.h"
#include "tests/support/child_process.h"
#include "tests/support/session_bus.h"
#include "tests/support/temporary_folder.h"

namespace glintboard {
namespace {

class VolumeKeys : public testing::TestWithParam<const char*> {
 protected:
  VolumeKeys() {
    for (const char* name : {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_STATE_HOME"}) {
      ::setenv(name, folder_.path().c_str(), 1);
    }
    ::setenv("PULSE_SERVER", ("unix:" + socket()).c_str(), 1);
    startServer();
  }

  std::string socket() const { return folder_ / "pulse/native"; }

  void startServer() {
    std::vector<std::string> command{test::desktopPart(GetParam())};
    if (GetParam() == std::string("pulseaudio")) {
      command.push_back(socket());
    }
    server_.emplace(std::move(command));
    ASSERT_TRUE(test::eventually([] { return pactl("info"); }));
    addSink("first");
    addSink("second");
  }

  void stopServer() {
    server_.reset();
    std::filesystem::remove_all(folder_ / "pulse");
  }

  static bool pactl(const std::string& command) {
    return ::system(("pactl " + command + " >/dev/null 2>&1").c_str()) == 0;
  }
  static void addSink(const std::string& name) {
    // Since version 1.4 PipeWire keeps the volume of a device that is not in use as it is.
    pactl("load-module module-null-sink channels=2 sink_name=" + name +
          " sink_properties=node.always-process=true");
    ASSERT_TRUE(test::eventually([&] { return pactl("get-sink-volume " + name); }));
  }
  static void removeSink(const std::string& name) {
    pactl("unload-module $(pactl list short modules | grep sink_name=" + name + " | cut -f1)");
    ASSERT_TRUE(test::eventually([&] { return !pactl("get-sink-volume " + name); }));
  }
  static bool becomesDefault(const std::string& name) {
    return test::eventually(
        [&] { return test::outputOf("pactl get-default-sink") == name + "\n"; });
  }
  static void makeDefault(const std::string& name) {
    // PipeWire refuses until its session manager runs, and applies the change with a delay.
    ASSERT_TRUE(test::eventually([&] { return pactl("set-default-sink " + name); }));
    ASSERT_TRUE(becomesDefault(name));
  }
  // The left and right volume, of 65536, and the mute state.
  static std::string stateOf(const std::string& sink) {
    return test::outputOf("echo $(pactl get-sink-volume " + sink +
                          " | sed -n 's/.*left: *\\([0-9]*\\).*right: *\\([0-9]*\\).*/\\1 \\2/p')" +
                          " $(pactl get-sink-mute " + sink + ")");
  }

  const test::TemporaryFolder folder_;
  const test::SessionBus bus_;
  std::optional<test::ChildProcess> server_;
  PulseAudioOutput output_;
  CoreAudioVolumeController volume_{output_};
};

INSTANTIATE_TEST_SUITE_P(Servers, VolumeKeys, testing::Values("pulseaudio", "pipewire"),
                         [](const auto& server) { return std::string(server.param); });

TEST_P(VolumeKeys, StepKeepingBalanceAndUnmute) {
  makeDefault("first");
  using Key = void (CoreAudioVolumeController::*)();
  const Key up = &CoreAudioVolumeController::volumeUp;
  const Key down = &CoreAudioVolumeController::volumeDown;
  const Key mute = &CoreAudioVolumeController::toggleMute;
  const struct {
    const char* volume;
    const char* muted;
    Key key;
    const char* after;
  } cases[] = {
      {"32768 16384", "1", up, "36864 18432 Mute: no\n"},
      {"98304 49152", "0", down, "65536 32768 Mute: no\n"},  // never above full
      {"65536 65536", "1", up, "65536 65536 Mute: no\n"},
      {"2000 2000", "1", down, "0 0 Mute: yes\n"},  // volume 0 does not unmute
      {"0 0", "1", up, "4096 4096 Mute: no\n"},
      {"32768 32768", "0", mute, "32768 32768 Mute: yes\n"},
      {"32768 32768", "1", mute, "32768 32768 Mute: no\n"},
  };
  for (const auto& [volume, muted, key, after] : cases) {
    pactl(std::string("set-sink-volume first ") + volume);
    pactl(std::string("set-sink-mute first ") + muted);
    (volume_.*key)();
    EXPECT_EQ(stateOf("first"), after) << volume;
  }
}

TEST_P(VolumeKeys, FollowTheDefaultDeviceAndServerRestarts) {
  pactl("set-sink-volume first 32768");
  pactl("set-sink-volume second 32768");
  makeDefault("first");
  volume_.volumeUp();
  makeDefault("second");
  volume_.volumeDown();
  EXPECT_EQ(stateOf("first"), "36864 36864 Mute: no\n");
  EXPECT_EQ(stateOf("second"), "28672 28672 Mute: no\n");

  stopServer();
  EXPECT_THROW(volume_.volumeUp(), CoreAudioVolumeError);
  startServer();
  makeDefault("second");
  pactl("set-sink-volume second 32768");
  volume_.volumeUp();
  EXPECT_EQ(stateOf("second"), "36864 36864 Mute: no\n");

  // The default device is removed, and the other becomes the default.
  pactl("set-sink-volume first 32768");
  removeSink("second");
  ASSERT_TRUE(becomesDefault("first"));
  volume_.volumeUp();
  EXPECT_EQ(stateOf("first"), "36864 36864 Mute: no\n");

  removeSink("first");
  if (GetParam() == std::string("pulseaudio")) {  // PipeWire keeps a dummy device
    EXPECT_FALSE(output_.defaultOutputDevice());
  }
}

TEST_P(VolumeKeys, FailInTimeOnAMissingDeviceAndAHungServer) {
  using namespace std::chrono_literals;
  makeDefault("first");
  auto device = output_.defaultOutputDevice();
  removeSink("first");
  try {
    device->volume();
    FAIL() << "read the volume of a missing device";
  } catch (const AudioError& error) {
    EXPECT_EQ(error.status, 5) << "no such entity";
  }
  makeDefault("second");
  device = output_.defaultOutputDevice();
  ASSERT_TRUE(device);
  std::this_thread::sleep_for(500ms);
  ASSERT_FALSE(server_->hasEnded());
  const auto server = std::to_string(server_->id());
  ::system(("kill -STOP " + server + " $(pgrep -P " + server + ")").c_str());
  const auto start = std::chrono::steady_clock::now();
  EXPECT_THROW(device->volume(), AudioError);
  EXPECT_THROW(device->setMuted(true), AudioError);
  EXPECT_LT(std::chrono::steady_clock::now() - start, test::slowdown * 1700ms)
      << "both calls share a deadline";
  EXPECT_FALSE(output_.defaultOutputDevice());
  EXPECT_LT(std::chrono::steady_clock::now() - start, test::slowdown * 4s);
}

// libpulse never returns when the server ends while they negotiate shared memory.
TEST_P(VolumeKeys, ShareNoMemoryWithTheServerAndKeepTheUsersSettings) {
  const auto sharedMemory = [] {
    return readWholeFile("/proc/self/maps").find("memfd:pulseaudio") != std::string::npos;
  };
  ::unsetenv("PULSE_SERVER");
  folder_.write("pulse/client.conf.d/a.conf", "default-server = unix:" + socket() + "\n");
  folder_.write("pulse/client.conf", "enable-shm = yes\n");
  auto device = output_.defaultOutputDevice();
  ASSERT_TRUE(device);
  EXPECT_TRUE(sharedMemory()) << "the default of libpulse";
  device.reset();

  shareNoMemoryWithSoundServer();
  device = output_.defaultOutputDevice();
  ASSERT_TRUE(device);
  EXPECT_FALSE(sharedMemory());
  EXPECT_EQ(soundSettingsForPrograms(), std::nullopt);
}

}  // namespace
}  // namespace glintboard
