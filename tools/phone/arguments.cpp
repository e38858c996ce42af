// SPDX-License-Identifier: MIT
#include "tools/phone/arguments.h"

#include <algorithm>
#include <charconv>

#include "protocol/glintboard_service.h"
#include "protocol/utf8.h"
#include "tools/phone/failure.h"

namespace glintboard::phone {
namespace {

constexpr double longestSeconds = 86400;
constexpr int mostPings = 1'000'000;

template <class Number>
std::optional<Number> number(std::string_view text) {
  Number value{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc{} || end != text.data() + text.size()) {
    return std::nullopt;
  }
  return value;
}

std::chrono::milliseconds seconds(const std::string& option, std::string_view text) {
  const auto value = number<double>(text);
  const bool inRange = value && *value >= 0.001 && *value <= longestSeconds;  // no NaN either
  if (!inRange) {
    throw usageFailure(option + " takes a number of seconds, at least 0.001.");
  }
  return std::chrono::milliseconds(static_cast<std::int64_t>(*value * 1000));
}

void requireText(const std::string& what, const std::string& text) {
  if (text.empty() || !isValidUtf8(text)) {
    throw usageFailure(what + " must be text that is not empty.");
  }
}

// An option and the commands that accept it; an empty list means all.
struct Option {
  std::string_view name;
  std::vector<Command> commands;
  void (*apply)(Arguments& arguments, const std::string& value);
};

const std::vector<Option>& valueOptions() {
  static const std::vector<Option> options = {
      {"--host",
       {Command::pair, Command::decks, Command::icons, Command::tap, Command::focus, Command::ping,
        Command::watch, Command::forget, Command::raw},  // not doctor, which checks this computer
       [](Arguments& arguments, const std::string& value) {
         arguments.host = parseAddress(value);
         if (!arguments.host) {
           throw usageFailure("--host takes HOST or HOST:PORT.");
         }
       }},
      {"--state",
       {},
       [](Arguments& arguments, const std::string& value) {
         if (value.empty()) {
           throw usageFailure("--state takes a folder.");
         }
         arguments.stateFolder = value;
       }},
      {"--timeout",
       {},
       [](Arguments& arguments, const std::string& value) {
         arguments.timeout = seconds("--timeout", value);
       }},
      {"--name",
       {Command::pair},
       [](Arguments& arguments, const std::string& value) {
         requireText("--name", value);
         arguments.name = value;
       }},
      {"--deck",
       {Command::tap, Command::focus},
       [](Arguments& arguments, const std::string& value) {
         const auto deck = fromRawValue<DeckCategoryID>(value);
         if (!deck) {
           throw usageFailure("--deck takes streaming or gaming.");
         }
         arguments.deck = *deck;
       }},
      {"--count",
       {Command::ping},
       [](Arguments& arguments, const std::string& value) {
         const auto count = number<int>(value);
         if (!count || *count < 1 || *count > mostPings) {
           throw usageFailure("--count takes a number from 1 to 1000000.");
         }
         arguments.count = *count;
       }},
      {"--for",
       {Command::watch},
       [](Arguments& arguments, const std::string& value) {
         arguments.watchFor = seconds("--for", value);
       }},
  };
  return options;
}

// The command line, split into options with their values and operands in order.
struct SortedWords {
  std::vector<std::pair<const Option*, std::string>> options;
  std::vector<std::string> operands;
  bool json = false;
  bool help = false;
  bool version = false;
};

SortedWords sortWords(const std::vector<std::string>& words) {
  SortedWords sorted;
  for (std::size_t index = 0; index < words.size(); ++index) {
    const std::string& word = words[index];
    if (word == "--") {
      sorted.operands.insert(sorted.operands.end(),
                             words.begin() + static_cast<std::ptrdiff_t>(index) + 1, words.end());
      break;
    }
    if (word == "--json" || word == "--version" || word == "--help" || word == "-h") {
      (word == "--json" ? sorted.json : word == "--version" ? sorted.version : sorted.help) = true;
      continue;
    }
    if (!word.starts_with("--")) {
      sorted.operands.push_back(word);
      continue;
    }
    const std::size_t equals = word.find('=');
    const std::string name = word.substr(0, equals);
    const auto option = std::ranges::find(valueOptions(), name, &Option::name);
    if (option == valueOptions().end()) {
      throw usageFailure("There is no option " + name + ". Run: glintboard-phone --help");
    }
    if (equals == std::string::npos && ++index == words.size()) {
      throw usageFailure(name + " needs a value.");
    }
    sorted.options.emplace_back(
        &*option, equals == std::string::npos ? words[index] : word.substr(equals + 1));
  }
  return sorted;
}

std::string operandNames(Command command) {
  switch (command) {
    case Command::pair:
      return "PIN-OR-ADDRESS";
    case Command::icons:
      return "DIR";
    case Command::tap:
    case Command::focus:
      return "SLOT";
    case Command::raw:
      return "TYPE PAYLOAD";
    default:
      return "";
  }
}

void requirePairingSecret(const std::string& secret) {
  const bool isPin = secret.size() == GlintboardService::pinLength &&
                     std::ranges::all_of(secret, [](char c) { return c >= '0' && c <= '9'; });
  const bool isAddress = secret.starts_with(GlintboardService::qrURLScheme);
  if (!isPin && !isAddress) {
    throw usageFailure(
        "pair takes the six digits that the computer shows, or its glintboard:// "
        "address.");
  }
}

void takeOperands(Arguments& arguments, const std::vector<std::string>& operands) {
  const std::string names = operandNames(arguments.command);
  const auto wanted = names.empty() ? 0 : 1 + std::ranges::count(names, ' ');
  if (std::ssize(operands) != wanted) {
    throw usageFailure("Usage: glintboard-phone " + std::string(rawValue(arguments.command)) +
                       (names.empty() ? "" : " " + names) + " [OPTION…]");
  }
  switch (arguments.command) {
    case Command::pair:
      requirePairingSecret(operands[0]);
      arguments.secret = operands[0];
      break;
    case Command::icons:
      requireText("DIR", operands[0]);
      arguments.iconFolder = operands[0];
      break;
    case Command::tap:
    case Command::focus: {
      const auto slot = number<std::int64_t>(operands[0]);
      if (!slot) {
        throw usageFailure("SLOT is the number of a key. Run: glintboard-phone decks");
      }
      arguments.slot = *slot;
      break;
    }
    case Command::raw:
      requireText("TYPE", operands[0]);
      requireText("PAYLOAD", operands[1]);
      arguments.messageType = operands[0];
      arguments.payload = operands[1];
      break;
    default:
      break;
  }
}

}  // namespace

std::string AgentAddress::text() const {
  const bool isIpv6 = host.find(':') != std::string::npos;
  return (isIpv6 ? "[" + host + "]" : host) + ":" + std::to_string(port);
}

std::optional<AgentAddress> parseAddress(std::string_view text) {
  std::string_view host = text;
  std::optional<std::string_view> port;
  if (text.starts_with('[')) {
    const auto bracket = text.find(']');
    if (bracket == std::string_view::npos) {
      return std::nullopt;
    }
    host = text.substr(1, bracket - 1);
    const auto rest = text.substr(bracket + 1);
    if (!rest.empty() && !rest.starts_with(':')) {
      return std::nullopt;
    }
    port = rest.empty() ? std::nullopt : std::optional(rest.substr(1));
  } else if (std::ranges::count(text, ':') == 1) {
    host = text.substr(0, text.find(':'));
    port = text.substr(text.find(':') + 1);
  }
  const auto portNumber =
      port ? number<std::uint16_t>(*port) : std::optional(GlintboardService::defaultPort);
  if (host.empty() || !portNumber || *portNumber == 0) {
    return std::nullopt;
  }
  return AgentAddress{std::string(host), *portNumber};
}

Arguments parseArguments(const std::vector<std::string>& words) {
  SortedWords sorted = sortWords(words);
  Arguments arguments;
  arguments.json = sorted.json;
  if (sorted.help || sorted.version) {
    arguments.command = sorted.help ? Command::help : Command::version;
    return arguments;
  }
  if (sorted.operands.empty()) {
    throw usageFailure("A command is missing. Run: glintboard-phone --help");
  }
  const auto command = fromRawValue<Command>(sorted.operands.front());
  if (!command) {
    throw usageFailure("There is no command " + sorted.operands.front() +
                       ". Run: glintboard-phone --help");
  }
  arguments.command = *command;
  sorted.operands.erase(sorted.operands.begin());
  for (const auto& [option, value] : sorted.options) {
    if (!option->commands.empty() && std::ranges::count(option->commands, *command) == 0) {
      throw usageFailure(std::string(option->name) + " is no option of " +
                         std::string(rawValue(*command)) + ".");
    }
    option->apply(arguments, value);
  }
  takeOperands(arguments, sorted.operands);
  return arguments;
}

}  // namespace glintboard::phone
