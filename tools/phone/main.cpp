#include <iostream>

#include "tools/phone/commands.h"

int main(int count, char** words) {
  return glintboard::phone::runPhone({words + (count > 0 ? 1 : 0), words + count}, std::cout,
                                     std::cerr, nullptr);
}
