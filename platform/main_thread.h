// SPDX-License-Identifier: MIT
// Qt's event loop as an executor, so that coroutines on the main thread can await actors.
#pragma once

#include <QObject>
#include <boost/asio/execution.hpp>
#include <boost/asio/execution_context.hpp>
#include <mutex>
#include <vector>

#include "platform/asio.h"

namespace glintboard {

// Create it on the main thread after the application object and destroy it before that. Work may be
// submitted from any thread and runs on the main thread in the order of submission. Timers are not
// supported: sleep on the service loop instead.
class MainThread : public asio::execution_context {
 public:
  MainThread();
  // Destroys queued work without running it.
  ~MainThread();

  // A standard executor. Never blocks and never runs work inside `execute`.
  class Executor {
   public:
    explicit Executor(MainThread& owner) : owner_(&owner) {}

    template <class Function>
    void execute(Function function) const {
      owner_->submit(std::make_unique<Submitted<Function>>(std::move(function)));
    }

    asio::execution_context& query(asio::execution::context_t) const noexcept { return *owner_; }
    static constexpr asio::execution::blocking_t query(asio::execution::blocking_t) noexcept {
      return asio::execution::blocking.never;
    }
    bool operator==(const Executor&) const noexcept = default;

   private:
    MainThread* owner_;
  };

  // Valid as long as this object.
  asio::any_io_executor executor() { return Executor(*this); }

 private:
  // A function of any type.
  struct Work {
    virtual ~Work() = default;
    virtual void run() = 0;
  };

  template <class Function>
  struct Submitted : Work {
    explicit Submitted(Function given) : function(std::move(given)) {}
    void run() override { std::move(function)(); }
    Function function;
  };

  // Any thread.
  void submit(std::unique_ptr<Work> work);
  // Main thread. Work that is submitted meanwhile runs in a later turn of the event loop.
  void runSubmitted();

  QObject receiver_;
  std::mutex mutex_;  // guards queue_
  std::vector<std::unique_ptr<Work>> queue_;
};

}  // namespace glintboard
