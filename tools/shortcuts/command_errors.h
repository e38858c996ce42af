// SPDX-License-Identifier: MIT
// What a Shortcut's command says on standard error.
#pragma once

#include <string>
#include <string_view>

namespace glintboard::shortcuts {

// Passes it on to this process's standard error as it comes, with one change: the shell's "not
// found" about a missing program gets other words, because whoever runs Shortcuts takes those for a
// missing Shortcut.
class CommandErrors {
 public:
  void pass(std::string_view text);
  // Passes on what may have become a line of the shell's.
  void finish();
  // Whether the shell missed a program.
  bool toldOfMissingProgram() const { return toldOfMissingProgram_; }

 private:
  void passLine(const std::string& line, bool mayBeShells);

  std::string held_;
  bool atStartOfLine_ = true;
  bool toldOfMissingProgram_ = false;
};

}  // namespace glintboard::shortcuts
