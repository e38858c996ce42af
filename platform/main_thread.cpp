// SPDX-License-Identifier: MIT
#include "platform/main_thread.h"

#include <QMetaObject>
#include <utility>

namespace glintboard {

MainThread::MainThread() = default;

MainThread::~MainThread() {
  shutdown();
  // Destroying queued work may submit more.
  while (!queue_.empty()) {
    std::exchange(queue_, {}).clear();
  }
  destroy();
}

void MainThread::submit(std::unique_ptr<Work> work) {
  {
    const std::lock_guard lock(mutex_);
    queue_.push_back(std::move(work));
    if (queue_.size() > 1) {
      return;  // Qt was notified when the first entry was queued.
    }
  }
  QMetaObject::invokeMethod(&receiver_, [this] { runSubmitted(); }, Qt::QueuedConnection);
}

void MainThread::runSubmitted() {
  std::vector<std::unique_ptr<Work>> due;
  {
    const std::lock_guard lock(mutex_);
    due.swap(queue_);
  }
  for (auto& work : due) {
    work->run();
    work.reset();
  }
}

}  // namespace glintboard
