// SPDX-License-Identifier: MIT
// The agent's command line.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace glintboard {

struct AgentArguments {
  bool background = false;      // do not open the menu at the start
  bool withoutDisplay = false;  // use the text menu even with a display
  bool help = false;
  bool version = false;
};

// The option that sets `withoutDisplay`.
inline constexpr const char* withoutDisplayOption = "--without-display";

// Parses the words after the program's name. Throws std::invalid_argument, with a text for the
// user, for an unknown option.
AgentArguments parseAgentArguments(const std::vector<std::string>& words);

// What --help and --version print.
const char* agentHelpText();
const char* agentVersionText();

}  // namespace glintboard
