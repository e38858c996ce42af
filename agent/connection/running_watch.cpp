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
  if (const auto look = look_) {
    co_await look->async_wait(asio::as_tuple(asio::use_awaitable));
    if (look_ == look) {
      look_.reset();
    }
  }
}

void RunningWatch::switchOn() {
  isOn_ = true;
  look_ = std::make_shared<asio::steady_timer>(executor_, timeout);
  switchOffWhenQuiet();
  desktop_(true, [weak = weak_from_this(), look = std::weak_ptr(look_)] {
    const auto self = weak.lock();
    const auto ended = look.lock();
    if (self && ended && self->look_ == ended) {
      self->look_.reset();
      ended->cancel();
    }
  });
}

void RunningWatch::switchOff() {
  isOn_ = false;
  look_.reset();
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
