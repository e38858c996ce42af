// SPDX-License-Identifier: MIT
// What the program does.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "platform/bonjour.h"
#include "platform/local_network.h"

namespace glintboard::phone {

// What the program knows of the network. `doctor` needs both.
struct Surroundings {
  BonjourBrowser* browser = nullptr;  // null finds no agent
  LocalNetwork* network = nullptr;
};

// Runs the command line `words` (without the program's name) and returns the exit code. Nothing is
// thrown.
int runPhone(const std::vector<std::string>& words, std::ostream& out, std::ostream& error,
             const Surroundings& surroundings);

}  // namespace glintboard::phone
