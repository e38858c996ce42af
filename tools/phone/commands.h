// SPDX-License-Identifier: MIT
// The entry point of the program.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "platform/bonjour.h"
#include "platform/local_network.h"

namespace glintboard::phone {

// Access to the network; tests replace it. `doctor` needs both.
struct Surroundings {
  BonjourBrowser* browser = nullptr;  // with null, no agent is found
  LocalNetwork* network = nullptr;
};

// Runs the command line `words` (without the program's name) and returns an `ExitCode`. Catches
// every std::exception.
int runPhone(const std::vector<std::string>& words, std::ostream& out, std::ostream& error,
             const Surroundings& surroundings);

}  // namespace glintboard::phone
