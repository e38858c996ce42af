// SPDX-License-Identifier: MIT
// The watch of running applications.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include "platform/asio.h"

namespace glintboard {

// Switches the desktop's watch of running applications on while a phone is connected and sends
// requests, and off otherwise. After it was switched on, requests wait for the first scan.
//
// Used on one serial executor; held by a shared_ptr.
class RunningWatch : public std::enable_shared_from_this<RunningWatch> {
 public:
  // Switches the desktop's watch; calls `scanned` on the executor when its first scan has ended.
  using Switch = std::function<void(bool on, std::function<void()> scanned)>;
  // The longest wait for the first scan.
  static constexpr std::chrono::milliseconds timeout{300};

  // The watch is switched off after `quietTime` without a request.
  RunningWatch(asio::any_io_executor executor, Switch desktop,
               std::chrono::milliseconds quietTime = std::chrono::seconds(15));

  // Whether a phone is connected.
  void setWanted(bool wanted);
  // To be called before each read of the running applications. False when the first scan has not
  // ended; then `known` is to be awaited.
  bool ask() {
    asked_ = true;
    if (isWanted_ && !isOn_) {
      switchOn();
    }
    return scan_ == nullptr;
  }
  // Resumes when the first scan has ended, after `timeout` at the latest.
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
  bool asked_ = false;  // since `quiet_` was set
  asio::steady_timer quiet_;
  // The deadline of the first scan; null when that has ended.
  std::shared_ptr<asio::steady_timer> scan_;
};

}  // namespace glintboard
