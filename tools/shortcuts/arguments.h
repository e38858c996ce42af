// SPDX-License-Identifier: MIT
// The command line of the tool.
#pragma once

#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace glintboard::shortcuts {

// The command line asks for something that does not exist; a text for people.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct Arguments {
  std::string command;
  std::vector<std::string> operands;
  // By name, without the dashes; empty text for an option that takes none.
  std::map<std::string, std::string> options;

  bool has(const std::string& option) const { return options.contains(option); }
};

// Reads the words after the program's name. Options stand anywhere after the command, as
// "--name VALUE" or "--name=VALUE"; after "--" all words are operands. Throws UsageError for what
// the command does not take.
Arguments parseArguments(const std::vector<std::string>& words);

}  // namespace glintboard::shortcuts
