// SPDX-License-Identifier: MIT
#include "agent/pairing/paired_list_loading.h"

#include <utility>

#include "platform/run_on.h"
#include "platform/spawn.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;

constexpr auto loadDeadline = 2s;

Awaitable<> watch(std::shared_ptr<PairedDeviceStoring> store, asio::any_io_executor lane,
                  std::function<void()> changed) {
  auto watching = runOn(lane, [store, changed = std::move(changed)] { store->watch(changed); });
  co_await std::move(watching);
}

}  // namespace

// Wakes one coroutine from any thread.
class PairedListLoading::Wakeup : public std::enable_shared_from_this<Wakeup> {
 public:
  explicit Wakeup(const asio::any_io_executor& executor) : timer_(executor) {
    timer_.expires_at(asio::steady_timer::time_point::max());
  }

  // Any thread.
  void notify() {
    asio::post(timer_.get_executor(), [self = shared_from_this()] {
      self->isNotified_ = true;
      self->timer_.cancel();
    });
  }

  // Resumes after a notification since the last call. On the timer's executor.
  static Awaitable<> next(std::shared_ptr<Wakeup> wakeup) {
    while (!std::exchange(wakeup->isNotified_, false)) {
      co_await wakeup->timer_.async_wait(asio::as_tuple(asio::use_awaitable));
    }
  }

 private:
  asio::steady_timer timer_;
  bool isNotified_ = false;
};

PairedListLoading::PairedListLoading(const asio::any_io_executor& executor,
                                     std::shared_ptr<const Observers> observers)
    : ended_(executor),
      observers_(std::move(observers)),
      changed_(std::make_shared<Wakeup>(executor)) {
  ended_.expires_after(loadDeadline);
}

PairedListLoading::~PairedListLoading() {
  changed_->notify();
}

std::shared_ptr<PairedListLoading> PairedListLoading::start(
    const asio::any_io_executor& executor, asio::any_io_executor lane,
    std::shared_ptr<PairedDeviceStoring> store, std::shared_ptr<const Observers> observers) {
  std::shared_ptr<PairedListLoading> loading(new PairedListLoading(executor, std::move(observers)));
  spawn(executor, run(loading, loading->changed_, std::move(store), std::move(lane)),
        "loading the pairing");
  return loading;
}

Awaitable<> PairedListLoading::wait() {
  if (isExpected()) {
    co_await ended_.async_wait(asio::as_tuple(asio::use_awaitable));
  }
}

Awaitable<> PairedListLoading::run(std::weak_ptr<PairedListLoading> wanted,
                                   std::shared_ptr<Wakeup> changed,
                                   std::shared_ptr<PairedDeviceStoring> store,
                                   asio::any_io_executor lane) {
  bool watches = false;
  while (!wanted.expired()) {
    auto load = runOn(lane, [store] {
      auto devices = store->load();
      return std::pair(std::move(devices), store->isOutOfReach());
    });
    auto [devices, isOutOfReach] = co_await std::move(load);
    if (const auto loading = wanted.lock()) {
      loading->devices_ = std::move(devices);
      loading->ended_.expires_at(asio::steady_timer::time_point::min());
      loading->observers_->notify();
    }
    if (!isOutOfReach) {
      break;
    }
    if (!std::exchange(watches, true)) {
      const auto notifyChange = [weak = std::weak_ptr(changed)] {
        if (const auto waiting = weak.lock()) {
          waiting->notify();
        }
      };
      co_await watch(store, lane, notifyChange);
    }
    co_await Wakeup::next(changed);
  }
  if (watches) {
    co_await watch(store, lane, {});
  }
}

}  // namespace glintboard
