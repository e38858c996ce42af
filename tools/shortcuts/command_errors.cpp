// SPDX-License-Identifier: MIT
#include "tools/shortcuts/command_errors.h"

#include <iostream>

namespace glintboard::shortcuts {

namespace {

constexpr std::string_view shell = "sh: ";

// The missing program in a line such as "sh: 1: kettle: not found"; empty for any other line.
std::string_view missingProgram(std::string_view line) {
  line = line.substr(0, line.find_last_not_of("\r\n") + 1);
  const auto reason = line.rfind(": ");
  if (!line.starts_with(shell) || !line.ends_with("not found") || reason < shell.size()) {
    return {};
  }
  line = line.substr(0, reason);
  return line.substr(line.rfind(": ") + 2);
}

}  // namespace

void CommandErrors::pass(std::string_view text) {
  constexpr std::size_t longest = 4096;
  held_ += text;
  while (!held_.empty()) {
    const auto end = held_.find('\n');
    const bool mayBeShells =
        atStartOfLine_ && (held_.starts_with(shell) || shell.starts_with(held_));
    if (end == std::string::npos && mayBeShells && held_.size() < longest) {
      return;
    }
    const auto line = held_.substr(0, end == std::string::npos ? end : end + 1);
    held_.erase(0, line.size());
    passLine(line, mayBeShells);
    atStartOfLine_ = end != std::string::npos;
  }
}

void CommandErrors::finish() {
  passLine(held_, atStartOfLine_);
  held_.clear();
}

void CommandErrors::passLine(const std::string& line, bool mayBeShells) {
  const auto program = mayBeShells ? missingProgram(line) : std::string_view();
  if (program.empty()) {
    std::cerr << line << std::flush;
    return;
  }
  toldOfMissingProgram_ = true;
  std::cerr << "The Shortcut's command names a program that is not installed: " << program
            << std::endl;
}

}  // namespace glintboard::shortcuts
