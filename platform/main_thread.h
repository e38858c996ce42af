// SPDX-License-Identifier: MIT
// Qt's event loop as an executor, so that what lives on the main thread awaits actors as any other
// coroutine does.
#pragma once

#include <QObject>
#include <boost/asio/execution.hpp>
#include <boost/asio/execution_context.hpp>
#include <mutex>
#include <vector>

#include "platform/asio.h"

namespace glintboard {

// Created on the main thread after the application object and destroyed before it. Work may be
// submitted from any thread and runs on the main one, in order. Qt is only woken: the queue is
// ours. Timers do not run here; sleep on the service loop instead.
class MainThread : public asio::execution_context {
 public:
  MainThread();
  ~MainThread();

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

  asio::any_io_executor executor() { return Executor(*this); }

 private:
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

  void submit(std::unique_ptr<Work> work);
  void runSubmitted();

  QObject receiver_;
  std::mutex mutex_;
  std::vector<std::unique_ptr<Work>> queue_;
};

}  // namespace glintboard
