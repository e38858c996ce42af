// SPDX-License-Identifier: MIT
#include "platform/executors.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTimer>
#include <atomic>
#include <latch>
#include <thread>

#include "platform/actor.h"
#include "platform/async_lock.h"
#include "platform/main_thread.h"
#include "platform/run_on.h"
#include "platform/spawn.h"
#include "tests/support/await.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;

// An actor whose operation holds a lock across an await.
class Counter : public Actor {
 public:
  explicit Counter(asio::any_io_executor executor)
      : Actor(std::move(executor)), lock_(this->executor()) {}
  Awaitable<int> increment() { return enter(doIncrement()); }

 private:
  Awaitable<int> doIncrement() {
    const auto guard = co_await lock_.acquire();
    const int before = value_;
    co_await sleepFor(1ms);
    value_ = before + 1;
    co_return value_;
  }

  AsyncLock lock_;
  int value_ = 0;
};

Awaitable<> incrementTwice(Counter& counter, std::atomic<int>& done) {
  co_await counter.increment();
  co_await counter.increment();
  ++done;
}

TEST(Actor, AsyncLockSerializesCallersOfAllExecutors) {
  Executors executors;
  Counter counter(executors.service());
  std::atomic<int> done = 0;
  for (int i = 0; i < 5; ++i) {
    spawn(executors.service(), incrementTwice(counter, done), "test");
    spawn(executors.workers(), incrementTwice(counter, done), "test");
  }
  ASSERT_TRUE(test::eventually([&] { return done == 10; }));
  EXPECT_EQ(test::await(executors.workers(), counter.increment()), 21);
}

TEST(RunBefore, TimesOutAndSurvivesALateResult) {
  Executors executors;
  std::latch released(1);
  bool ended = false;  // of the lane's thread
  const auto call = [&](std::chrono::milliseconds deadline, auto function) {
    return test::await(executors.service(),
                       runBefore(deadline, executors.keychainLane(), std::move(function)));
  };
  EXPECT_EQ(call(20ms,
                 [&] {
                   released.wait();
                   return ended = true;
                 }),
            std::nullopt);
  released.count_down();
  EXPECT_EQ(call(test::slowdown * 5s, [&] { return ended; }), true);
}

int fail() {
  throw std::runtime_error("no");
}

Awaitable<> failInCoroutine() {
  fail();
  co_return;
}

TEST(Executors, ExceptionsReachTheCallerOrTheLog) {
  Executors executors;
  asio::post(executors.service(), fail);
  for (const auto& executor : {executors.service(), executors.workers(), executors.workerStrand(),
                               executors.keychainLane(), executors.volumeLane()}) {
    spawn(executor, failInCoroutine(), "test");
    EXPECT_THROW(test::await(executors.service(), runOn(executor, fail)), std::runtime_error);
    EXPECT_THROW(test::await(executors.service(), runBefore(5s, executor, fail)),
                 std::runtime_error);
    EXPECT_EQ(test::await(executors.service(), runOn(executor, [] { return 1; })), 1);
  }
}

Awaitable<> hop(Executors& executors, std::vector<std::thread::id>& seen) {
  for (int i = 0; i < 3; ++i) {
    seen.push_back(std::this_thread::get_id());
    co_await runOn(executors.service(), [] { return 0; });
  }
  seen.push_back(std::this_thread::get_id());
  QCoreApplication::quit();
}

TEST(MainThread, ResumesCoroutinesOnTheEventLoopThread) {
  int argc = 1;
  char name[] = "test";
  char* argv[] = {name, nullptr};
  const QCoreApplication application(argc, argv);
  Executors executors;
  MainThread mainThread;
  std::vector<std::thread::id> seen;
  spawn(mainThread.executor(), hop(executors, seen), "test");
  QTimer::singleShot(test::slowdown * 5s, [] { QCoreApplication::exit(1); });
  EXPECT_EQ(QCoreApplication::exec(), 0);
  EXPECT_EQ(seen, std::vector(4, std::this_thread::get_id()));
}

}  // namespace
}  // namespace glintboard
