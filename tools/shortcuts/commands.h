// SPDX-License-Identifier: MIT
// The Shortcuts tool: everything but main.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace glintboard::shortcuts {

// Executes the command line `words` (without the program's name) in the XDG folders of the
// environment and returns the exit code: 0 success, 1 failure, 2 usage error; "run" returns the
// command's own. The process must have one thread.
int runTool(const std::vector<std::string>& words, std::ostream& out, std::ostream& err);

}  // namespace glintboard::shortcuts
