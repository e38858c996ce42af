// SPDX-License-Identifier: MIT
#include "platform/linux/applications/running_applications.h"

#include <cerrno>

#include "platform/file_descriptor.h"
#include "platform/linux/process/pidfd.h"
#include "platform/run_on.h"
#include "platform/spawn.h"

namespace glintboard {

namespace {

using namespace std::chrono_literals;

// Each needs a descriptor. The end of further applications is noticed by the next scan.
constexpr std::size_t mostFollowed = 64;

// Resumes when a process has ended.
Awaitable<> endOf(pid_t process) {
  // The descriptor is close-on-exec by itself.
  const int descriptor = ::pidfd_open(process, 0);
  if (descriptor >= 0) {
    asio::posix::stream_descriptor ended(co_await asio::this_coro::executor, descriptor);
    co_await ended.async_wait(asio::posix::stream_descriptor::wait_read, asio::use_awaitable);
  } else if (errno != ESRCH) {
    // No descriptor is available: the process may still run.
    co_await sleepFor(2s);
  }
}

}  // namespace

std::shared_ptr<RunningApplications> RunningApplications::create(
    Executors& executors, std::shared_ptr<CurrentApplicationMatcher> matcher) {
  return std::shared_ptr<RunningApplications>(
      new RunningApplications(executors, std::move(matcher)));
}

RunningApplications::RunningApplications(Executors& executors,
                                         std::shared_ptr<CurrentApplicationMatcher> matcher)
    : service_(executors.service()),
      workers_(executors.workers()),
      matcher_(std::move(matcher)),
      nextScan_(service_) {}

std::shared_ptr<const RunningApplications::Snapshot> RunningApplications::current() const {
  const std::scoped_lock lock(mutex_);
  return current_;
}

void RunningApplications::launched(const std::string& bundleId, pid_t leader) {
  {
    const std::scoped_lock lock(mutex_);
    launched_[leader] = {bundleId, leader};
    publish();
  }
  spawn(service_, followSession(weak_from_this(), leader), "launched application");
}

void RunningApplications::watch(bool on, std::function<void()> scanned) {
  asio::post(service_, [self = shared_from_this(), on, scanned = std::move(scanned)] {
    self->startOrStop(on, scanned);
  });
}

// A launched script may end and leave its application behind: the session lives on in another
// process.
Awaitable<> RunningApplications::followSession(std::weak_ptr<RunningApplications> weakSelf,
                                               pid_t leader) {
  for (std::optional<pid_t> process = leader; process;) {
    co_await endOf(*process);
    const auto self = weakSelf.lock();
    if (!self) {
      co_return;
    }
    auto other = runOn(self->workers_, [leader] { return processOfSession(leader); });
    process = co_await std::move(other);
    const std::scoped_lock lock(self->mutex_);
    if (process) {
      self->launched_[leader].process = *process;
      self->publish();
    }
  }
  const auto self = weakSelf.lock();
  if (!self) {
    co_return;
  }
  // What has left the session is found before the application would be missed.
  std::optional<Snapshot> scanned;
  if (self->watching_) {
    const unsigned round = self->round_;
    auto scanning = runOn(self->workers_, [self] { return self->scan(); });
    scanned = co_await std::move(scanning);
    if (round != self->round_) {
      scanned.reset();
    }
  }
  {
    const std::scoped_lock lock(self->mutex_);
    self->launched_.erase(leader);
    if (!scanned) {
      self->publish();
      co_return;
    }
  }
  self->takeScan(std::move(*scanned));
}

Awaitable<> RunningApplications::scanRepeatedly(std::shared_ptr<RunningApplications> self,
                                                unsigned round, std::function<void()> scanned) {
  for (;;) {
    auto scanning = runOn(self->workers_, [self] { return self->scan(); });
    auto found = co_await std::move(scanning);
    if (round != self->round_) {
      co_return;
    }
    self->takeScan(std::move(found));
    if (const auto notify = std::exchange(scanned, nullptr)) {
      notify();
    }
    self->nextScan_.expires_after(2s);
    co_await self->nextScan_.async_wait(asio::as_tuple(asio::use_awaitable));
    if (round != self->round_) {
      co_return;
    }
  }
}

void RunningApplications::startOrStop(bool on, std::function<void()> scanned) {
  if (on == watching_) {
    return;
  }
  watching_ = on;
  ++round_;
  nextScan_.cancel();
  if (on) {
    spawn(service_, scanRepeatedly(shared_from_this(), round_, std::move(scanned)),
          "running applications");
    return;
  }
  takeScan({});
}

RunningApplications::Snapshot RunningApplications::scan() {
  const auto matcher = matcher_->get();
  Snapshot found;
  for (const auto& process : ownProcesses()) {
    for (const auto& bundleId : matcher->applicationsOf(process)) {
      found[bundleId].insert(process.id);
    }
  }
  return found;
}

void RunningApplications::takeScan(Snapshot scanned) {
  std::erase_if(followed_, [&](const auto& each) {
    const auto found = scanned.find(each.first);
    return found == scanned.end() || !found->second.contains(each.second.process);
  });
  for (auto& [bundleId, processes] : scanned) {
    if (!followed_.contains(bundleId)) {
      followOneOf(bundleId, processes);
    }
  }
  std::erase_if(scanned, [](const auto& application) { return application.second.empty(); });
  const std::scoped_lock lock(mutex_);
  scanned_ = std::move(scanned);
  publish();
}

void RunningApplications::followOneOf(const std::string& bundleId, std::set<pid_t>& processes) {
  while (!processes.empty() && followed_.size() < mostFollowed) {
    const pid_t process = *processes.begin();
    FileDescriptor descriptor(::pidfd_open(process, 0));
    if (!descriptor && errno == ESRCH) {
      processes.erase(process);
      continue;
    }
    asio::posix::stream_descriptor end(service_);
    error_code failed;
    end.assign(descriptor.get(), failed);
    if (!failed) {
      descriptor.release();
      end.async_wait(asio::posix::stream_descriptor::wait_read,
                     [weakSelf = weak_from_this(), bundleId, process](error_code error) {
                       const auto self = weakSelf.lock();
                       if (self && !error) {
                         self->ended(bundleId, process);
                       }
                     });
      followed_.emplace(bundleId, Followed{process, std::move(end)});
    }
    return;
  }
}

void RunningApplications::ended(const std::string& bundleId, pid_t process) {
  followed_.erase(bundleId);
  const std::scoped_lock lock(mutex_);
  const auto application = scanned_.find(bundleId);
  if (application == scanned_.end()) {
    return;
  }
  application->second.erase(process);
  followOneOf(bundleId, application->second);
  if (application->second.empty()) {
    scanned_.erase(application);
    publish();
  }
}

void RunningApplications::publish() {
  auto merged = std::make_shared<Snapshot>(scanned_);
  for (const auto& [leader, application] : launched_) {
    (*merged)[application.bundleId].insert(application.process);
  }
  current_ = std::move(merged);
}

}  // namespace glintboard
