// SPDX-License-Identifier: MIT
#include "agent/menu/text_writer.h"

#include <unistd.h>

#include <cerrno>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

namespace glintboard {
namespace {

constexpr std::size_t maxWaiting = 4;  // texts

void writeAll(int output, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = ::write(output, text.data(), text.size());
    if (count > 0) {
      text.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno != EINTR) {
      return;  // No reader: the text is dropped.
    }
  }
}

}  // namespace

struct TextWriter::Queue {
  std::mutex mutex;
  std::condition_variable changed;
  std::deque<std::string> texts;
  bool ended = false;
};

TextWriter::TextWriter(int output) : queue_(std::make_shared<Queue>()) {
  std::thread([output, queue = queue_] {
    std::unique_lock lock(queue->mutex);
    for (;;) {
      queue->changed.wait(lock, [&] { return queue->ended || !queue->texts.empty(); });
      if (queue->ended) {
        return;
      }
      const std::string text = std::move(queue->texts.front());
      queue->texts.pop_front();
      lock.unlock();
      writeAll(output, text);
      lock.lock();
    }
  }).detach();
}

TextWriter::~TextWriter() {
  const std::lock_guard lock(queue_->mutex);
  queue_->ended = true;
  queue_->changed.notify_one();
}

void TextWriter::write(std::string text) {
  const std::lock_guard lock(queue_->mutex);
  if (queue_->texts.size() == maxWaiting) {
    queue_->texts.pop_front();
  }
  queue_->texts.push_back(std::move(text));
  queue_->changed.notify_one();
}

}  // namespace glintboard
