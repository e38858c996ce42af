// SPDX-License-Identifier: MIT
#include "agent/app/agent_app.h"

int main(int argc, char** argv) {
  return glintboard::runAgent(argc, argv);
}
