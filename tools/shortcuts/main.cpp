// SPDX-License-Identifier: MIT
#include <iostream>

#include "tools/shortcuts/commands.h"

int main(int count, char** words) {
  return glintboard::shortcuts::runTool({words + (count > 0 ? 1 : 0), words + count}, std::cout,
                                        std::cerr);
}
