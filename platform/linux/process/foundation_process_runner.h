// SPDX-License-Identifier: MIT
// Child processes on the service loop.
#pragma once

#include "platform/process_running.h"

namespace glintboard {

// Starts each program in a process group of its own, with /dev/null as standard input, default
// signal handling and no descriptors but its two output pipes. A run ends with the process itself:
// a descendant that keeps the pipes open does not delay it, and survives unless the run timed out.
//
// A started run continues when its caller is cancelled; the caller resumes at its end. Destroying
// the loop leaves the processes running. The name is the role's in the system's design, which was
// made for a Mac.
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
