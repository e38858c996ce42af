// SPDX-License-Identifier: MIT
#include "agent/connection/running_watch.h"

#include <utility>

namespace glintboard {

RunningWatch::RunningWatch(asio::any_io_executor executor, Switch desktop,
                           std::chrono::milliseconds quietTime)
    : executor_(std::move(executor)),
      desktop_(std::move(desktop)),
      quietTime_(quietTime),
      quiet_(executor_) {}

void RunningWatch::setWanted(bool wanted) {
  isWanted_ = wanted;
  if (wanted && !isOn_) {
    switchOn();
  } else if (!wanted && isOn_) {
    switchOff();
  }
}

Awaitable<> RunningWatch::known() {
  if (const auto scan = scan_) {
    co_await scan->async_wait(asio::as_tuple(asio::use_awaitable));
    if (scan_ == scan) {
      scan_.reset();
    }
  }
}

void RunningWatch::switchOn() {
  isOn_ = true;
  scan_ = std::make_shared<asio::steady_timer>(executor_, timeout);
  switchOffWhenQuiet();
  desktop_(true, [weak = weak_from_this(), scan = std::weak_ptr(scan_)] {
    const auto self = weak.lock();
    const auto ended = scan.lock();
    if (self && ended && self->scan_ == ended) {
      self->scan_.reset();
      ended->cancel();
    }
  });
}

void RunningWatch::switchOff() {
  isOn_ = false;
  scan_.reset();
  quiet_.cancel();
  desktop_(false, nullptr);
}

void RunningWatch::switchOffWhenQuiet() {
  asked_ = false;
  quiet_.expires_after(quietTime_);
  quiet_.async_wait([weak = weak_from_this()](error_code interrupted) {
    const auto self = weak.lock();
    if (interrupted || !self || !self->isOn_) {
      return;
    }
    if (self->asked_) {
      self->switchOffWhenQuiet();
    } else {
      self->switchOff();
    }
  });
}

}  // namespace glintboard
