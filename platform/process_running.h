// SPDX-License-Identifier: MIT
// Runs programs to their end, with a timeout.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/asio.h"

namespace glintboard {

struct ProcessRunResult {
  // As a shell reports it: 128 + n for a process that was ended by signal n.
  std::int32_t exitCode = 0;
  // The first MiB of each output stream; empty if it is not UTF-8.
  std::string stdoutText;
  std::string stderrText;
  // The process was still running at the deadline and was terminated.
  bool timedOut = false;
  bool operator==(const ProcessRunResult&) const = default;
};

class ProcessRunning {
 public:
  virtual ~ProcessRunning() = default;

  // Runs `executable` (a path) with `arguments` (without the program's name) and resumes when the
  // process has ended. At `timeout` the process and its group are asked to end, and killed two
  // seconds later. Throws UserError when the process cannot be started, or an argument cannot be
  // one. May be awaited on any executor, by several callers at once.
  virtual Awaitable<ProcessRunResult> run(std::string executable,
                                          std::vector<std::string> arguments,
                                          std::chrono::duration<double> timeout) = 0;
};

// Whether `path` names a file that this user may execute.
bool isExecutableFile(const std::string& path);

// Whether a program receives `text` whole as one argument: it holds no NUL and is not too long.
bool canBeArgument(std::string_view text);

}  // namespace glintboard
