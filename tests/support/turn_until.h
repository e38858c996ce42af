// SPDX-License-Identifier: MIT
// Waiting while Qt's event loop runs.
#pragma once

#include <QCoreApplication>
#include <QEventLoop>
#include <QThread>
#include <chrono>
#include <functional>

#include "tests/support/eventually.h"

namespace glintboard::test {

// Runs the event loop until `holds`, or gives up after `limit`.
inline bool turnUntil(const std::function<bool()>& holds,
                      std::chrono::milliseconds limit = slowdown * std::chrono::seconds(10)) {
  const auto end = std::chrono::steady_clock::now() + limit;
  while (!holds()) {
    if (std::chrono::steady_clock::now() > end) {
      return false;
    }
    QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QThread::msleep(1);
  }
  return true;
}

}  // namespace glintboard::test
