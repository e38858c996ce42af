// SPDX-License-Identifier: MIT
#include "platform/linux/shortcuts/shortcut_text.h"

#include <algorithm>

namespace glintboard {

std::string oneLine(std::string_view text) {
  std::string line(text);
  for (char& letter : line) {
    if (static_cast<unsigned char>(letter) < ' ' || letter == '\x7f') {
      letter = ' ';
    }
  }
  line.erase(line.find_last_not_of(' ') + 1);
  line.erase(0, line.find_first_not_of(' '));
  return line;
}

std::string upperCase(std::string_view text) {
  std::string upper(text);
  for (char& letter : upper) {
    if (letter >= 'a' && letter <= 'z') {
      letter = static_cast<char>(letter - 'a' + 'A');
    }
  }
  return upper;
}

}  // namespace glintboard
