// SPDX-License-Identifier: MIT
#include "tools/shortcuts/arguments.h"

#include <algorithm>
#include <array>

namespace glintboard::shortcuts {

namespace {

struct Option {
  std::string name;
  bool takesValue;
};

struct Command {
  const char* name;
  std::size_t operands;
  std::vector<Option> options;
  const char* usage;
};

const std::vector<Command>& commands() {
  static const std::vector<Command> all = {
      {"list", 0, {{"show-identifiers", false}}, "list [--show-identifiers]"},
      {"run", 1, {}, "run ID|NAME"},
      {"create", 1, {{"command", true}, {"icon", true}}, "create NAME --command COMMAND"},
      {"edit",
       1,
       {{"name", true}, {"command", true}, {"icon", true}},
       "edit ID|NAME [--name NAME] [--command COMMAND] [--icon ICON]"},
      {"delete", 1, {}, "delete ID|NAME"},
      {"show", 1, {}, "show ID|NAME"},
      {"help", 0, {}, "help"},
      {"version", 0, {}, "--version"},
  };
  return all;
}

bool asksForHelp(const std::string& word) {
  return word == "--help" || word == "-h";
}

const Command& commandNamed(const std::string& word) {
  std::string name = word;
  if (asksForHelp(word)) {
    name = "help";
  } else if (word == "--version") {
    name = "version";
  }
  const auto found = std::ranges::find(commands(), name, &Command::name);
  if (found == commands().end()) {
    throw UsageError("There is no command \"" + name + "\".");
  }
  return *found;
}

// Reads the option at `index` with its value and moves `index` to the last word of both.
void readOption(const Command& command, const std::vector<std::string>& words, std::size_t& index,
                Arguments& arguments) {
  const std::string& word = words[index];
  const auto equals = word.find('=');
  const std::string name = word.substr(2, equals == std::string::npos ? equals : equals - 2);
  const auto option = std::ranges::find(command.options, name, &Option::name);
  if (option == command.options.end()) {
    throw UsageError("\"" + std::string(command.name) + "\" has no option \"" + word + "\".");
  }
  std::string value;
  if (equals != std::string::npos) {
    value = word.substr(equals + 1);
  } else if (option->takesValue && ++index < words.size()) {
    value = words[index];
  }
  if (index == words.size() || (equals != std::string::npos && !option->takesValue)) {
    throw UsageError("The option \"--" + name + "\" takes " +
                     (option->takesValue ? "a value." : "no value."));
  }
  if (!arguments.options.emplace(name, std::move(value)).second) {
    throw UsageError("The option \"--" + name + "\" is given twice.");
  }
}

}  // namespace

Arguments parseArguments(const std::vector<std::string>& words) {
  if (words.empty()) {
    throw UsageError("Say what to do.");
  }
  Arguments arguments;
  const Command& command = commandNamed(words.front());
  arguments.command = command.name;
  bool optionsEnded = false;
  for (std::size_t index = 1; index < words.size(); ++index) {
    if (!optionsEnded && words[index] == "--") {
      optionsEnded = true;
    } else if (!optionsEnded && asksForHelp(words[index])) {
      return {"help", {}, {}};
    } else if (!optionsEnded && words[index].starts_with("--")) {
      readOption(command, words, index, arguments);
    } else {
      arguments.operands.push_back(words[index]);
    }
  }
  if (arguments.operands.size() != command.operands) {
    throw UsageError(std::string("It is: shortcuts ") + command.usage + ".");
  }
  return arguments;
}

}  // namespace glintboard::shortcuts
