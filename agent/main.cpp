#include "agent/shell/agent_app.h"

int main(int argc, char** argv) {
  return glintboard::runAgent(argc, argv);
}
