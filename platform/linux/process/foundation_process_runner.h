// SPDX-License-Identifier: MIT
// Child processes on the service loop.
#pragma once

#include "platform/process_running.h"

namespace glintboard {

// Starts each program in a process group of its own, with /dev/null as standard input, default
// signals and no descriptor of the agent's but its two output pipes. The loop waits for the end of
// the process itself: a descendant that keeps the pipes open does not hold a run up, and lives on
// unless the run timed out.
//
// A run that has begun goes on to its end even when its caller is cancelled; only then does the
// caller resume. A loop that is destroyed leaves its processes running.
class FoundationProcessRunner : public ProcessRunning {
 public:
  // `loop` must be the executor of one thread.
  explicit FoundationProcessRunner(asio::any_io_executor loop) : loop_(std::move(loop)) {}

  Awaitable<ProcessRunResult> run(std::string executable, std::vector<std::string> arguments,
                                  std::chrono::duration<double> timeout) override;

 private:
  asio::any_io_executor loop_;
};

}  // namespace glintboard
