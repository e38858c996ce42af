// SPDX-License-Identifier: MIT
// The output of the text menu.
#pragma once

#include <memory>
#include <string>

namespace glintboard {

// Writes to a descriptor on a thread of its own, since a stopped terminal or a full pipe may block
// the writing. Any thread.
class TextWriter {
 public:
  explicit TextWriter(int output);
  // Discards texts that are not yet written. Does not wait for a blocked write.
  ~TextWriter();
  TextWriter(const TextWriter&) = delete;
  TextWriter& operator=(const TextWriter&) = delete;

  // Queues the text and returns at once. A full queue drops its oldest text.
  void write(std::string text);

 private:
  struct Queue;

  std::shared_ptr<Queue> queue_;
};

}  // namespace glintboard
