// SPDX-License-Identifier: MIT
#include "agent/app/agent_arguments.h"

#include <map>

namespace glintboard {

AgentArguments parseAgentArguments(const std::vector<std::string>& words) {
  static const std::map<std::string, bool AgentArguments::*, std::less<>> options = {
      {"--background", &AgentArguments::background},
      {withoutDisplayOption, &AgentArguments::withoutDisplay},
      {"--help", &AgentArguments::help},
      {"-h", &AgentArguments::help},
      {"--version", &AgentArguments::version},
  };
  AgentArguments arguments;
  for (const std::string& word : words) {
    const auto option = options.find(word);
    if (option == options.end()) {
      throw std::invalid_argument("There is no option " + word + ". Run: glintboard-agent --help");
    }
    arguments.*option->second = true;
  }
  return arguments;
}

const char* agentHelpText() {
  return R"(Glintboard Agent: the computer's side of a phone that is a deck of keys.

Usage: glintboard-agent [OPTION…]

It serves phones on port 9847, opens its menu with the pairing code, and stays
in the desktop's tray. Without a display the menu is text, and takes commands.
An agent that runs already gives way to this one.

Options:
  --background       start without opening the menu, as at login
  --without-display  print the menu even where a window could show it
  --help, --version

It serves until "Quit" in its menu. SIGUSR1 sends the decks to the phone anew.
)";
}

const char* agentVersionText() {
  return "glintboard-agent " GLINTBOARD_VERSION "\n";
}

}  // namespace glintboard
