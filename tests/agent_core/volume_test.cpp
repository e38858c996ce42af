// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "agent_core/actions/action_handlers.h"
#include "agent_core/actions/core_audio_volume_controller.h"
#include "tests/support/fakes.h"

namespace glintboard {
namespace {

using test::FakeOutput;
using test::Sound;

TEST(Volume, ReportsEachFailureWithItsText) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"system.volume.up", "read volume", "Could not read volume (error -7)."},
      {"system.volume.down", "write volume", "Could not change volume (error -7)."},
      {"system.volume.mute", "read mute", "Could not read mute state (error -7)."},
      {"system.volume.up", "write mute", "Could not toggle mute (error -7)."},
      {"system.volume.mute", "device", "No audio output device found."},
  };
  for (const auto& [action, failing, message] : cases) {
    Sound sound{0.5F, false, std::string(failing) != "device", failing};
    FakeOutput output(sound);
    const SystemActionRunner runner(std::make_shared<CoreAudioVolumeController>(output));
    EXPECT_EQ(runner.perform(action), SystemActionResult::Result(SystemActionResult::Error{
                                          action, ActionErrorCode::failed, message}));
  }
}

}  // namespace
}  // namespace glintboard
