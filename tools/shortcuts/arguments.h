// SPDX-License-Identifier: MIT
// The command line of the tool.
#pragma once

#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace glintboard::shortcuts {

// An error in the command line, with a message for the user.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct Arguments {
  std::string command;
  std::vector<std::string> operands;
  // By name, without the dashes; the value is empty for an option without one.
  std::map<std::string, std::string> options;

  bool has(const std::string& option) const { return options.contains(option); }
};

// Parses the words after the program's name. Options may stand anywhere after the command, as
// "--name VALUE" or "--name=VALUE"; after "--" all words are operands. Throws UsageError for
// options and operands that the command does not accept.
Arguments parseArguments(const std::vector<std::string>& words);

}  // namespace glintboard::shortcuts
