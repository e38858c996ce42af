#include "platform/linux/running_applications.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <boost/asio/posix/stream_descriptor.hpp>
#include <cerrno>

#include "platform/run_on.h"
#include "platform/spawn.h"

namespace glintboard {

namespace {

using namespace std::chrono_literals;

// Resumes when a process has ended.
Awaitable<> endOf(pid_t process) {
  // The descriptor is close-on-exec by itself.
  const int descriptor = static_cast<int>(::syscall(SYS_pidfd_open, process, 0));
  if (descriptor >= 0) {
    asio::posix::stream_descriptor ended(co_await asio::this_coro::executor, descriptor);
    co_await ended.async_wait(asio::posix::stream_descriptor::wait_read, asio::use_awaitable);
  } else if (errno != ESRCH) {
    // No descriptors left: it may still run.
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

void RunningApplications::watch(bool on) {
  asio::post(service_, [self = shared_from_this(), on] { self->startOrStop(on); });
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
  const std::scoped_lock lock(self->mutex_);
  self->launched_.erase(leader);
  if (scanned) {
    self->scanned_ = std::move(*scanned);
  }
  self->publish();
}

Awaitable<> RunningApplications::scanRepeatedly(std::shared_ptr<RunningApplications> self,
                                                unsigned round) {
  for (;;) {
    auto scanning = runOn(self->workers_, [self] { return self->scan(); });
    auto scanned = co_await std::move(scanning);
    if (round != self->round_) {
      co_return;
    }
    {
      const std::scoped_lock lock(self->mutex_);
      self->scanned_ = std::move(scanned);
      self->publish();
    }
    self->nextScan_.expires_after(2s);
    co_await self->nextScan_.async_wait(asio::as_tuple(asio::use_awaitable));
    if (round != self->round_) {
      co_return;
    }
  }
}

void RunningApplications::startOrStop(bool on) {
  if (on == watching_) {
    return;
  }
  watching_ = on;
  ++round_;
  nextScan_.cancel();
  if (on) {
    spawn(service_, scanRepeatedly(shared_from_this(), round_), "running applications");
    return;
  }
  const std::scoped_lock lock(mutex_);
  scanned_.clear();
  publish();
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

void RunningApplications::publish() {
  auto merged = std::make_shared<Snapshot>(scanned_);
  for (const auto& [leader, application] : launched_) {
    (*merged)[application.bundleId].insert(application.process);
  }
  current_ = std::move(merged);
}

}  // namespace glintboard
