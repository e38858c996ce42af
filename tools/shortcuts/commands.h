// SPDX-License-Identifier: MIT
// The Shortcuts tool: everything but main.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace glintboard::shortcuts {

// Obeys the words after the program's name, for the user and the applications that the environment
// names, and returns the exit code: 0 done, 1 it could not be done, 2 wrong usage; "run" returns
// the command's own. For a process of one thread.
int runTool(const std::vector<std::string>& words, std::ostream& out, std::ostream& err);

}  // namespace glintboard::shortcuts
