// SPDX-License-Identifier: MIT
// Load generator.
//   glintboard-load exchange PORT CONNECTIONS IN-FLIGHT REQUESTS REPLIES SERVER-PID TOKEN MESSAGE
//       Sends the message REQUESTS times, waits for REPLIES replies to each and prints a line of
//       JSON: p50, p99 and max of the round trip and the server's processor time per request, in
//       microseconds, and the length of a reply. With the token "raw" it does not use WebSockets.
//   glintboard-load hold PORT CONNECTIONS TOKEN
//       Opens the connections, prints "held" and keeps them until its input ends.
#include <poll.h>
#include <sys/epoll.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <memory>
#include <stdexcept>
#include <vector>

#include "bench/load/connection.h"
#include "bench/load/processor_time.h"

namespace {

using namespace glintboard;
using bench::Connection;
using Clock = std::chrono::steady_clock;

// The connections and an epoll instance for them.
class Connections {
 public:
  Connections(std::uint16_t port, int count, const std::string& token, std::size_t rawLength) {
    const auto framing = token == "raw" ? bench::Framing::none : bench::Framing::webSocket;
    for (int i = 0; i < count; ++i) {
      all_.push_back(std::make_unique<Connection>(port, framing, token, rawLength));
      epoll_event event{};
      event.events = EPOLLIN;
      event.data.u32 = static_cast<std::uint32_t>(i);
      ::epoll_ctl(poll_.get(), EPOLL_CTL_ADD, all_.back()->descriptor(), &event);
    }
  }

  std::size_t size() const { return all_.size(); }
  Connection& at(std::size_t index) { return *all_[index]; }
  void watch(int descriptor, std::uint32_t number) const {
    epoll_event event{};
    event.events = EPOLLIN;
    event.data.u32 = number;
    ::epoll_ctl(poll_.get(), EPOLL_CTL_ADD, descriptor, &event);
  }

  // Waits for input and calls `function(number)` for each readable connection.
  template <class Function>
  void await(Function function) {
    epoll_event events[64];
    const int count = ::epoll_wait(poll_.get(), events, 64, 30'000);
    if (count <= 0) {
      throw std::runtime_error("the server does not answer");
    }
    for (int i = 0; i < count; ++i) {
      function(events[i].data.u32);
    }
  }

 private:
  FileDescriptor poll_{::epoll_create1(EPOLL_CLOEXEC)};
  std::vector<std::unique_ptr<Connection>> all_;
};

struct Exchange {
  std::uint16_t port;
  int connections;
  int inFlight;
  long requests;
  int replies;
  pid_t server;
  std::string token;
  std::string message;
};

// The requests in flight on one connection.
struct Pending {
  std::deque<Clock::time_point> sent;
  int replies = 0;  // received for the oldest
};

class Measurement {
 public:
  explicit Measurement(const Exchange& given)
      : given_(given),
        bytes_(given.token == "raw" ? given.message : bench::clientFrame(given.message)),
        connections_(given.port, given.connections, given.token, given.message.size()),
        pending_(connections_.size()) {}

  void run(long requests) {
    taken_.clear();
    taken_.reserve(static_cast<std::size_t>(requests));
    left_ = requests;
    for (std::size_t index = 0; index < connections_.size(); ++index) {
      ask(index, given_.inFlight);
    }
    while (taken_.size() < static_cast<std::size_t>(requests)) {
      connections_.await([this](std::size_t index) { receive(index); });
    }
  }

  double percentile(double part) {
    std::ranges::sort(taken_);
    const auto last = static_cast<double>(taken_.size() - 1);
    return taken_[static_cast<std::size_t>(part * last)];
  }
  std::size_t replyLength() { return connections_.at(0).latest().size(); }

 private:
  void ask(std::size_t index, int count) {
    std::string all;
    auto& pending = pending_[index];
    const auto now = Clock::now();
    for (; count > 0 && left_ > 0; --count, --left_) {
      all += bytes_;
      pending.sent.push_back(now);
    }
    connections_.at(index).send(all);
  }

  void receive(std::size_t index) {
    auto& pending = pending_[index];
    pending.replies += connections_.at(index).receive();
    const auto now = Clock::now();
    int answered = 0;
    for (; pending.replies >= given_.replies; pending.replies -= given_.replies) {
      taken_.push_back(
          std::chrono::duration<double, std::micro>(now - pending.sent.front()).count());
      pending.sent.pop_front();
      ++answered;
    }
    ask(index, answered);
  }

  const Exchange& given_;
  std::string bytes_;
  Connections connections_;
  std::vector<Pending> pending_;
  std::vector<double> taken_;
  long left_ = 0;
};

void exchange(const Exchange& given) {
  Measurement measurement(given);
  if (given.requests >= 1000) {
    measurement.run(given.requests / 20);  // warms up caches
  }
  const double before = bench::processorMicroseconds(given.server);
  measurement.run(given.requests);
  const double used = bench::processorMicroseconds(given.server) - before;
  const double p50 = measurement.percentile(0.5);
  const double p99 = measurement.percentile(0.99);
  std::printf(R"({"p50": %.3f, "p99": %.3f, "max": %.3f, "cpu": %.3f, "length": %zu})"
              "\n",
              p50, p99, measurement.percentile(1), used / static_cast<double>(given.requests),
              measurement.replyLength());
}

void hold(std::uint16_t port, int count, const std::string& token) {
  Connections connections(port, count, token, 0);
  std::puts("held");
  std::fflush(stdout);
  const auto input = static_cast<std::uint32_t>(count);
  connections.watch(STDIN_FILENO, input);
  for (bool ended = false; !ended;) {
    connections.await([&](std::uint32_t number) {
      if (number == input) {
        ended = true;
      } else {
        connections.at(number).receive();
      }
    });
  }
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> words(argv + 1, argv + argc);
  try {
    if (words.size() == 9 && words[0] == "exchange") {
      exchange({static_cast<std::uint16_t>(std::stoi(words[1])), std::stoi(words[2]),
                std::stoi(words[3]), std::stol(words[4]), std::stoi(words[5]), std::stoi(words[6]),
                words[7], words[8]});
    } else if (words.size() == 4 && words[0] == "hold") {
      hold(static_cast<std::uint16_t>(std::stoi(words[1])), std::stoi(words[2]), words[3]);
    } else {
      std::fputs("usage: see the head of bench/load/main.cpp\n", stderr);
      return 2;
    }
  } catch (const std::exception& error) {
    std::fprintf(stderr, "glintboard-load: %s\n", error.what());
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
