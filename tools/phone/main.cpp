// SPDX-License-Identifier: MIT
#include <iostream>

#include "platform/bonjour.h"
#include "tools/phone/commands.h"

int main(int count, char** words) {
  const auto browser = glintboard::BonjourBrowser::live();
  const auto network = glintboard::LocalNetwork::live();
  return glintboard::phone::runPhone({words + (count > 0 ? 1 : 0), words + count}, std::cout,
                                     std::cerr, {browser.get(), network.get()});
}
