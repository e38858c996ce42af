// SPDX-License-Identifier: MIT
// The standard error of a Shortcut's command.
#pragma once

#include <string>
#include <string_view>

namespace glintboard::shortcuts {

// Copies it to this process's standard error as it arrives, with one change: the shell's "not
// found" for a missing program is reworded, because callers of this tool take "not found" for a
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
