// SPDX-License-Identifier: MIT
// The processor time of a process.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace glintboard::bench {

// Of all live threads of the process, in microseconds with nanosecond resolution.
inline double processorMicroseconds(pid_t process) {
  double nanoseconds = 0;
  const std::string tasks = "/proc/" + std::to_string(process) + "/task";
  for (const auto& task : std::filesystem::directory_iterator(tasks)) {
    double used = 0;
    std::ifstream(task.path() / "schedstat") >> used;
    nanoseconds += used;
  }
  return nanoseconds / 1000;
}

}  // namespace glintboard::bench
