// SPDX-License-Identifier: MIT
#pragma once

namespace glintboard {

// Runs the agent until the user quits it or it is asked to end, and returns the exit code.
int runAgent(int argc, char** argv);

}  // namespace glintboard
