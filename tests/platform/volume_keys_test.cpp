// The volume keys on the sound servers that desktops have.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include <thread>

#include "agent_core/actions/core_audio_volume_controller.h"
#include "platform/linux/pulse_audio_output.h"
#include "tests/support/child_process.h"
#include "tests/support/session_bus.h"
#include "tests/support/temporary_folder.h"

namespace glintboard {
namespace {

using testing::AllOf;
using testing::HasSubstr;

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
    ASSERT_TRUE(test::eventually([] { return ::system("pactl info >/dev/null 2>&1") == 0; }));
    addSink("first");
    addSink("second");
  }

  void stopServer() {
    server_.reset();
    std::filesystem::remove_all(folder_ / "pulse");
  }

  static bool becomesPresent(const std::string& sink, bool present) {
    return test::eventually([&] {
      const auto question = "pactl get-sink-volume " + sink + " >/dev/null 2>&1";
      return (::system(question.c_str()) == 0) == present;
    });
  }
  static void addSink(const std::string& name) {
    ::system(("pactl load-module module-null-sink channels=2 sink_name=" + name + " >/dev/null")
                 .c_str());
    ASSERT_TRUE(becomesPresent(name, true));
  }
  static void removeSink(const std::string& name) {
    ::system(
        ("pactl unload-module $(pactl list short modules | grep sink_name=" + name + " | cut -f1)")
            .c_str());
    ASSERT_TRUE(becomesPresent(name, false));
  }
  static void makeDefault(const std::string& name) {
    // PipeWire refuses until its session manager is there, and does it a little later.
    ASSERT_TRUE(test::eventually([&] {
      return ::system(("pactl set-default-sink " + name + " 2>/dev/null").c_str()) == 0;
    }));
    ASSERT_TRUE(
        test::eventually([&] { return test::outputOf("pactl get-default-sink") == name + "\n"; }));
  }

  static std::string volumes(const std::string& sink) {
    return test::outputOf("pactl get-sink-volume " + sink + " | head -1");
  }

  const test::TemporaryFolder folder_;
  const test::SessionBus bus_;
  std::optional<test::ChildProcess> server_;
  PulseAudioOutput output_;
  CoreAudioVolumeController volume_{output_};
};

INSTANTIATE_TEST_SUITE_P(Servers, VolumeKeys, testing::Values("pulseaudio", "pipewire"),
                         [](const auto& server) { return std::string(server.param); });

TEST_P(VolumeKeys, StepBothChannelsKeepTheirBalanceClampAndUnmute) {
  makeDefault("first");
  ::system("pactl set-sink-volume first 32768 16384");
  ::system("pactl set-sink-mute first 1");
  volume_.volumeUp();
  EXPECT_THAT(volumes("first"), AllOf(HasSubstr("left: 36864 "), HasSubstr("right: 18432 ")));
  EXPECT_EQ(test::outputOf("pactl get-sink-mute first"), "Mute: no\n");
  ::system("pactl set-sink-volume first 98304 49152");
  volume_.volumeDown();
  EXPECT_THAT(volumes("first"), AllOf(HasSubstr("left: 65536 "), HasSubstr("right: 32768 ")))
      << "never above full";
  volume_.toggleMute();
  ::system("pactl set-sink-volume first 2000");
  volume_.volumeDown();
  EXPECT_THAT(volumes("first"), AllOf(HasSubstr("left: 0 "), HasSubstr("right: 0 ")));
  EXPECT_EQ(test::outputOf("pactl get-sink-mute first"), "Mute: yes\n")
      << "silence leaves it as it was";
  volume_.toggleMute();
  volume_.volumeUp();
  EXPECT_THAT(volumes("first"), AllOf(HasSubstr("left: 4096 "), HasSubstr("right: 4096 ")));
  EXPECT_EQ(test::outputOf("pactl get-sink-mute first"), "Mute: no\n");
}

TEST_P(VolumeKeys, FollowTheDefaultDeviceAndTheServerFromTapToTap) {
  ::system("pactl set-sink-volume first 32768");
  ::system("pactl set-sink-volume second 32768");
  makeDefault("first");
  volume_.volumeUp();
  makeDefault("second");
  volume_.volumeDown();
  EXPECT_THAT(volumes("first"), HasSubstr("left: 36864 "));
  EXPECT_THAT(volumes("second"), HasSubstr("left: 28672 "));

  stopServer();
  EXPECT_THROW(volume_.volumeUp(), CoreAudioVolumeError);
  startServer();
  makeDefault("second");
  ::system("pactl set-sink-volume second 32768");
  volume_.volumeUp();
  EXPECT_THAT(volumes("second"), HasSubstr("left: 36864 "));

  // The default device goes, and the other takes its place.
  ::system("pactl set-sink-volume first 32768");
  removeSink("second");
  ASSERT_TRUE(
      test::eventually([] { return test::outputOf("pactl get-default-sink") == "first\n"; }));
  volume_.volumeUp();
  EXPECT_THAT(volumes("first"), HasSubstr("left: 36864 "));

  removeSink("first");
  try {
    volume_.toggleMute();  // PipeWire keeps a dummy device where there is no other
  } catch (const CoreAudioVolumeError& error) {
    EXPECT_STREQ(error.what(), "No audio output device found.");
  }
}

TEST_P(VolumeKeys, FailInTimeOnADeviceThatIsGoneAndAServerThatHangs) {
  using namespace std::chrono_literals;
  makeDefault("first");
  auto device = output_.defaultOutputDevice();
  removeSink("first");
  try {
    device->volume();
    FAIL() << "the volume of a device that is gone";
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
  EXPECT_LT(std::chrono::steady_clock::now() - start, test::patience * 1700ms)
      << "one deadline for all";
  EXPECT_FALSE(output_.defaultOutputDevice());
  EXPECT_LT(std::chrono::steady_clock::now() - start, test::patience * 4s);
}

}  // namespace
}  // namespace glintboard
