#include "platform/linux/pulse_audio_output.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include <thread>

#include "tests/support/child_process.h"
#include "tests/support/temporary_folder.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;

// A sound server of the test's own.
class PulseAudio : public testing::Test {
 protected:
  PulseAudio() {
    ::setenv("HOME", folder_.path().c_str(), 1);
    ::setenv("XDG_RUNTIME_DIR", folder_.path().c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", folder_.path().c_str(), 1);
    ::setenv("PULSE_SERVER", ("unix:" + socket_).c_str(), 1);
  }

  void startServer(bool withSink) {
    std::vector<std::string> command{test::desktopPart("pulseaudio"), socket_};
    if (withSink) {
      command.insert(command.end(), {"-L", "module-null-sink sink_name=test channels=2"});
    }
    server_ = std::make_unique<test::ChildProcess>(std::move(command));
    ASSERT_TRUE(test::eventually([] { return ::system("pactl info >/dev/null 2>&1") == 0; }));
  }

  static std::string volumes() { return test::outputOf("pactl get-sink-volume test | head -1"); }

  const test::TemporaryFolder folder_;
  const std::string socket_ = folder_ / "pulse.sock";
  std::unique_ptr<test::ChildProcess> server_;
  PulseAudioOutput output_;
};

TEST_F(PulseAudio, ReadsTheLoudestChannelAndKeepsTheBalanceWhenItSets) {
  startServer(true);
  ::system("pactl set-sink-volume test 65536 32768");
  const auto device = output_.defaultOutputDevice();
  ASSERT_TRUE(device);
  EXPECT_EQ(device->volume(), 1.0F);
  device->setVolume(0.5F);
  EXPECT_THAT(volumes(), testing::AllOf(testing::HasSubstr("left: 32768 "),
                                        testing::HasSubstr("right: 16384 ")));
  EXPECT_EQ(device->volume(), 0.5F);
  device->setVolume(0.30001F);  // 19661.455 and half of it
  EXPECT_THAT(volumes(), testing::AllOf(testing::HasSubstr("left: 19661 "),
                                        testing::HasSubstr("right: 9831 ")));
  device->setVolume(0);
  device->setVolume(0.0625F);
  EXPECT_THAT(volumes(), testing::AllOf(testing::HasSubstr("left: 4096 "),
                                        testing::HasSubstr("right: 4096 ")));
}

TEST_F(PulseAudio, MutesApartFromTheVolume) {
  startServer(true);
  ::system("pactl set-sink-volume test 40000");
  const auto device = output_.defaultOutputDevice();
  ASSERT_TRUE(device);
  EXPECT_FALSE(device->isMuted());
  device->setMuted(true);
  EXPECT_EQ(test::outputOf("pactl get-sink-mute test"), "Mute: yes\n");
  EXPECT_TRUE(device->isMuted());
  device->setVolume(0.25F);
  EXPECT_TRUE(device->isMuted());
  device->setMuted(false);
  EXPECT_EQ(test::outputOf("pactl get-sink-mute test"), "Mute: no\n");
  EXPECT_EQ(device->volume(), 0.25F);
}

TEST_F(PulseAudio, HasNoDeviceWithoutAServerOrASinkAndNoticesALaterOne) {
  EXPECT_FALSE(output_.defaultOutputDevice());
  startServer(false);
  EXPECT_FALSE(output_.defaultOutputDevice());
  ::system("pactl load-module module-null-sink sink_name=late >/dev/null");
  const auto device = output_.defaultOutputDevice();
  ASSERT_TRUE(device);
  ::system("pactl unload-module module-null-sink");
  try {
    device->volume();
    FAIL() << "the volume of a device that is gone";
  } catch (const AudioError& error) {
    EXPECT_EQ(error.status, 5) << "no such entity";
  }
}

TEST_F(PulseAudio, AServerThatHangsCostsTwoSecondsInAll) {
  startServer(true);
  const auto device = output_.defaultOutputDevice();
  ASSERT_TRUE(device);
  std::this_thread::sleep_for(500ms);
  server_->signal(SIGSTOP);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_THROW(device->volume(), AudioError);
  EXPECT_LT(std::chrono::steady_clock::now() - start, 1700ms);
  EXPECT_THROW(device->setMuted(true), AudioError);
  EXPECT_LT(std::chrono::steady_clock::now() - start, 1700ms);
  EXPECT_FALSE(output_.defaultOutputDevice());
  EXPECT_LT(std::chrono::steady_clock::now() - start, 4s);
}

}  // namespace
}  // namespace glintboard
