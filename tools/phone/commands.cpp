// SPDX-License-Identifier: MIT
#include "tools/phone/commands.h"

#include <algorithm>
#include <system_error>

#include "tools/phone/command_context.h"

namespace glintboard::phone {
namespace {

void perform(const CommandContext& context) {
  switch (context.arguments.command) {
    case Command::pair:
      return pairCommand(context);
    case Command::decks:
      return decksCommand(context);
    case Command::icons:
      return iconsCommand(context);
    case Command::tap:
      return tapCommand(context);
    case Command::focus:
      return focusCommand(context);
    case Command::ping:
      return pingCommand(context);
    case Command::watch:
      return watchCommand(context);
    case Command::forget:
      return forgetCommand(context);
    case Command::doctor:
      return doctorCommand(context);
    case Command::raw:
      return rawCommand(context);
    case Command::help:
    case Command::version:
      break;
  }
}

void parseAndPerform(const std::vector<std::string>& words, std::ostream& out, Output& output,
                     const Surroundings& surroundings) {
  const Arguments arguments = parseArguments(words);
  if (arguments.command == Command::help) {
    out << helpText() << std::flush;
  } else if (arguments.command == Command::version) {
    out << "glintboard-phone " GLINTBOARD_VERSION << std::endl;
  } else {
    const auto folder = arguments.stateFolder ? *arguments.stateFolder : defaultStateFolder();
    perform(
        {arguments, output, surroundings.browser, surroundings.network, PhoneStateFile(folder)});
  }
}

}  // namespace

int runPhone(const std::vector<std::string>& words, std::ostream& out, std::ostream& error,
             const Surroundings& surroundings) {
  // Errors in the command line are reported as JSON too if it contains --json.
  Output output(out, error, std::ranges::count(words, "--json") != 0);
  try {
    parseAndPerform(words, out, output, surroundings);
    return static_cast<int>(ExitCode::ok);
  } catch (const PhoneFailure& failure) {
    output.failure(failure);
    return static_cast<int>(failure.exitCode);
  } catch (const std::exception& failure) {
    // A file cannot be read or written; the message names it and the reason.
    output.failure({ExitCode::local, "local", failure.what()});
    return static_cast<int>(ExitCode::local);
  }
}

}  // namespace glintboard::phone
