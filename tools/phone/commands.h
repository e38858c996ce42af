// What the program does.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "platform/bonjour.h"

namespace glintboard::phone {

// Runs the command line `words` (without the program's name) and returns the exit code. Nothing is
// thrown. `browser` finds agents on the network; null finds none.
int runPhone(const std::vector<std::string>& words, std::ostream& out, std::ostream& error,
             BonjourBrowser* browser);

}  // namespace glintboard::phone
