// SPDX-License-Identifier: MIT
// The watch of running applications, as long as phones ask what runs.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include "platform/asio.h"

namespace glintboard {

// Switches the desktop's watch on when a phone may ask, and off when none may or none has asked for
// a while. After it was switched on, the first answers wait for the watch's first look.
//
// Belongs to one serial executor, and is held by a shared_ptr.
class RunningWatch : public std::enable_shared_from_this<RunningWatch> {
 public:
  // Switches the desktop's watch; calls `looked` on the executor once its first look has ended.
  using Switch = std::function<void(bool on, std::function<void()> looked)>;
  static constexpr std::chrono::milliseconds timeout{300};

  // `quietTime` is for how long nobody has asked when the watch ends.
  RunningWatch(asio::any_io_executor executor, Switch desktop,
               std::chrono::milliseconds quietTime = std::chrono::seconds(15));

  // Whether a phone may ask.
  void setWanted(bool wanted);
  // To be called before each look at what runs. False when that is not known yet: `known` comes
  // first then.
  bool ask() {
    asked_ = true;
    if (isWanted_ && !isOn_) {
      switchOn();
    }
    return look_ == nullptr;
  }
  // Resumes when what runs is known, after `timeout` at the latest.
  Awaitable<> known();

 private:
  void switchOn();
  void switchOff();
  void switchOffWhenQuiet();

  const asio::any_io_executor executor_;
  const Switch desktop_;
  const std::chrono::milliseconds quietTime_;
  bool isWanted_ = false;
  bool isOn_ = false;
  bool asked_ = false;  // since the timer was set
  asio::steady_timer quiet_;
  // Of the first look; none when that has ended.
  std::shared_ptr<asio::steady_timer> look_;
};

}  // namespace glintboard
