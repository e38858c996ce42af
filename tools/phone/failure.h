// SPDX-License-Identifier: MIT
// Failures of commands and their exit codes.
#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace glintboard::phone {

// The exit codes of the program. Scripts rely on the numbers.
enum class ExitCode {
  ok = 0,
  refused = 1,      // the agent refused or reported an error, or does not know this phone
  usage = 2,        // the command line asks for something that does not exist
  unreachable = 3,  // no connection, or it broke
  timeout = 4,      // connected, but no answer in time
  local = 5,        // a file of the phone's own cannot be read or written
};

// Ends a command. The message names the user's next step; `code` is for scripts.
class PhoneFailure : public std::runtime_error {
 public:
  PhoneFailure(ExitCode exit, std::string reason, const std::string& message)
      : std::runtime_error(message), exitCode(exit), code(std::move(reason)) {}

  ExitCode exitCode;
  std::string code;
};

inline PhoneFailure usageFailure(const std::string& message) {
  return {ExitCode::usage, "usage", message};
}

}  // namespace glintboard::phone
