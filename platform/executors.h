// SPDX-License-Identifier: MIT
// The threads of the agent and the executors over them.
#pragma once

#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/thread_pool.hpp>
#include <thread>

#include "platform/asio.h"

namespace glintboard {

// The service loop, one thread, runs sockets, timers, child processes and actors with short turns.
// Two workers run tasks that block or compute for a bounded time. The keychain and the sound server
// have a lane of one thread each, so that a daemon that hangs delays only its own callers.
class Executors {
 public:
  Executors();
  // Joins all threads, which waits for running tasks. A process that must exit by a deadline exits
  // without destroying its executors.
  ~Executors();

  asio::any_io_executor service() { return service_.get_executor(); }
  asio::any_io_executor workers() { return workers_.get_executor(); }
  // A serial executor over the workers, for one actor.
  asio::any_io_executor workerStrand();
  asio::any_io_executor keychainLane() { return keychain_.get_executor(); }
  asio::any_io_executor volumeLane() { return volume_.get_executor(); }

 private:
  asio::io_context service_{1};
  asio::executor_work_guard<asio::io_context::executor_type> keepRunning_;
  asio::thread_pool workers_{2};
  asio::thread_pool keychain_{1};
  asio::thread_pool volume_{1};
  std::thread serviceThread_;
};

}  // namespace glintboard
