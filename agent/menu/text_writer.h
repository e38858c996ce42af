// SPDX-License-Identifier: MIT
// Where the menu in text is printed.
#pragma once

#include <memory>
#include <string>

namespace glintboard {

// Writes to a descriptor on a thread of its own, for whoever reads there may hold it up: a terminal
// that stands still, a full pipe. Any thread.
class TextWriter {
 public:
  explicit TextWriter(int output);
  // What is held up or not begun yet is lost.
  ~TextWriter();
  TextWriter(const TextWriter&) = delete;
  TextWriter& operator=(const TextWriter&) = delete;

  // Returns at once. Of texts that wait behind one that is held up, the last ones are kept.
  void write(std::string text);

 private:
  struct Queue;

  std::shared_ptr<Queue> queue_;
};

}  // namespace glintboard
