// SPDX-License-Identifier: MIT
// The interface of the volume keys.
#pragma once

#include <stdexcept>

namespace glintboard {

// Each operation blocks for at most two seconds. On failure it throws an exception with a text for
// the user.
class VolumeControlling {
 public:
  virtual ~VolumeControlling() = default;
  virtual void volumeUp() = 0;
  virtual void volumeDown() = 0;
  virtual void toggleMute() = 0;
};

class MockVolumeError : public std::runtime_error {
 public:
  MockVolumeError() : std::runtime_error("simulated") {}
};

// A test double that counts the calls.
class MockVolumeController : public VolumeControlling {
 public:
  int volumeUpCount = 0;
  int volumeDownCount = 0;
  int toggleMuteCount = 0;
  bool shouldThrow = false;

  void volumeUp() override { count(volumeUpCount); }
  void volumeDown() override { count(volumeDownCount); }
  void toggleMute() override { count(toggleMuteCount); }

 private:
  void count(int& counter) const {
    if (shouldThrow) {
      throw MockVolumeError();
    }
    ++counter;
  }
};

}  // namespace glintboard
