// SPDX-License-Identifier: MIT
#include "platform/executors.h"

#include <pthread.h>
#include <signal.h>

#include <boost/asio/strand.hpp>

#include "platform/log.h"

namespace glintboard {

Executors::Executors() : keepRunning_(service_.get_executor()) {
  serviceThread_ = std::thread([this] {
    pthread_setname_np(pthread_self(), "service");
    // An exception in one handler must not end the other connections.
    for (;;) {
      try {
        service_.run();
        return;
      } catch (const std::exception& error) {
        log::warning("service loop: ", error.what());
      }
    }
  });
}

Executors::~Executors() {
  service_.stop();
  serviceThread_.join();
  workers_.stop();
  keychain_.stop();
  volume_.stop();
}

asio::any_io_executor Executors::workerStrand() {
  return asio::make_strand(workers_.get_executor());
}

}  // namespace glintboard
