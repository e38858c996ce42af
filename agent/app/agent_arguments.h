// SPDX-License-Identifier: MIT
// The agent's command line.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace glintboard {

struct AgentArguments {
  bool background = false;      // the menu waits in the tray until it is asked for
  bool withoutDisplay = false;  // the menu is text, even where windows could be shown
  bool help = false;
  bool version = false;
};

// The option that sets `withoutDisplay`.
inline constexpr const char* withoutDisplayOption = "--without-display";

// Reads the words after the program's name. Throws std::invalid_argument, with a text for people,
// for a word that is none of the options.
AgentArguments parseAgentArguments(const std::vector<std::string>& words);

// What --help and --version print.
const char* agentHelpText();
const char* agentVersionText();

}  // namespace glintboard
