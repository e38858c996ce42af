// SPDX-License-Identifier: MIT
#include "platform/linux/process/foundation_process_runner.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <boost/asio/cancellation_state.hpp>
#include <boost/asio/posix/stream_descriptor.hpp>

#include "platform/linux/process/locked_data.h"
#include "platform/linux/process/spawned_process.h"
#include "platform/spawn.h"

namespace glintboard {
namespace {

using Clock = std::chrono::steady_clock;
constexpr auto graceAfterTerminate = std::chrono::seconds(2);

// Passes the ownership of a descriptor to Asio. Closes it on failure.
asio::posix::stream_descriptor adopt(const asio::any_io_executor& loop, FileDescriptor descriptor) {
  asio::posix::stream_descriptor adopted(loop);
  adopted.assign(descriptor.get());
  descriptor.release();
  return adopted;
}

struct OutputStream {
  asio::posix::stream_descriptor pipe;
  LockedData data;

  // Reads the bytes that are in the pipe now, at most `most`. False at the end of the stream.
  bool readAvailable(std::size_t most) {
    std::array<char, 16384> buffer;
    while (most > 0) {
      const ssize_t count =
          ::read(pipe.native_handle(), buffer.data(), std::min(most, buffer.size()));
      if (count <= 0) {
        return count < 0 && (errno == EAGAIN || errno == EINTR);
      }
      data.append({buffer.data(), static_cast<std::size_t>(count)});
      most -= static_cast<std::size_t>(count);
    }
    return true;
  }

  std::size_t capacity() {
    return static_cast<std::size_t>(std::max(0, ::fcntl(pipe.native_handle(), F_GETPIPE_SZ)));
  }
};

// One running process, accessed only on the loop. Shared with the collectors, which may resume
// after the end of the run.
struct Run {
  Run(const asio::any_io_executor& loop, SpawnedProcess spawned)
      : group(spawned.id),
        process(adopt(loop, std::move(spawned.descriptor))),
        output{adopt(loop, std::move(spawned.outputPipe)), {}},
        errors{adopt(loop, std::move(spawned.errorPipe)), {}},
        wake(loop) {}

  pid_t group;
  asio::posix::stream_descriptor process;
  OutputStream output;
  OutputStream errors;
  asio::steady_timer wake;  // expires at the next deadline, cancelled by the end of the process
  bool ended = false;
};

std::shared_ptr<Run> start(const asio::any_io_executor& loop, const std::string& executable,
                           const std::vector<std::string>& arguments) {
  SpawnedProcess process = spawnProcess(executable, arguments);
  const pid_t id = process.id;
  try {
    return std::make_shared<Run>(loop, std::move(process));
  } catch (...) {
    killProcess(id);
    throw;
  }
}

// Collects a stream until it ends or the run closes it. Waiting and reading are separate, so that
// no read is pending when the run takes the text.
Awaitable<> collect(std::shared_ptr<OutputStream> stream) {
  for (;;) {
    const auto [error] = co_await stream->pipe.async_wait(asio::posix::stream_descriptor::wait_read,
                                                          asio::as_tuple(asio::use_awaitable));
    if (error || !stream->pipe.is_open() || !stream->readAvailable(stream->capacity())) {
      co_return;
    }
  }
}

// Resumes at `deadline`, or earlier when the process has ended.
Awaitable<> waitForEnd(std::shared_ptr<Run> run, Clock::time_point deadline) {
  run->wake.expires_at(deadline);
  while (!run->ended && Clock::now() < deadline) {
    co_await run->wake.async_wait(asio::as_tuple(asio::use_awaitable));
  }
}

// Kills the rest of a group whose first process has ended after SIGTERM.
Awaitable<> killGroupAt(pid_t group, Clock::time_point deadline) {
  co_await sleepFor(deadline - Clock::now());
  ::kill(-group, SIGKILL);
}

// Reads no more than the pipe's capacity, because a descendant may keep writing to it.
std::string finish(OutputStream& stream) {
  stream.readAvailable(stream.capacity());
  error_code ignored;
  stream.pipe.close(ignored);
  return stream.data.text();
}

Clock::duration toClock(std::chrono::duration<double> timeout) {
  constexpr std::chrono::duration<double> longest = std::chrono::hours(24 * 365);
  if (!(timeout.count() > 0)) {
    return Clock::duration::zero();
  }
  return std::chrono::duration_cast<Clock::duration>(std::min(timeout, longest));
}

Awaitable<ProcessRunResult> runToEnd(asio::any_io_executor loop, std::string executable,
                                     std::vector<std::string> arguments, Clock::duration timeout) {
  co_await asio::this_coro::reset_cancellation_state(asio::disable_cancellation());
  const Clock::time_point deadline = Clock::now() + timeout;
  const std::shared_ptr<Run> run = start(loop, executable, arguments);
  run->process.async_wait(asio::posix::stream_descriptor::wait_read, [run](error_code) {
    run->ended = true;
    run->wake.cancel();
  });
  spawn(loop, collect({run, &run->output}), "output of a process");
  spawn(loop, collect({run, &run->errors}), "errors of a process");

  co_await waitForEnd(run, deadline);
  ProcessRunResult result;
  result.timedOut = !run->ended;
  Clock::time_point graceEnd;
  if (result.timedOut) {
    ::kill(-run->group, SIGTERM);
    graceEnd = Clock::now() + graceAfterTerminate;
    co_await waitForEnd(run, graceEnd);
    if (!run->ended) {
      ::kill(-run->group, SIGKILL);
      co_await waitForEnd(run, Clock::time_point::max());
    }
  }
  result.stdoutText = finish(run->output);
  result.stderrText = finish(run->errors);
  // The pidfd may become readable shortly before the exit status is available.
  auto exitCode = reapProcess(run->group);
  while (!exitCode) {
    co_await sleepFor(std::chrono::milliseconds(5));
    exitCode = reapProcess(run->group);
  }
  result.exitCode = *exitCode;
  if (result.timedOut && ::kill(-run->group, 0) == 0) {
    spawn(loop, killGroupAt(run->group, graceEnd), "end of a process group");
  }
  co_return result;
}

}  // namespace

Awaitable<ProcessRunResult> FoundationProcessRunner::run(std::string executable,
                                                         std::vector<std::string> arguments,
                                                         std::chrono::duration<double> timeout) {
  co_return co_await asio::co_spawn(
      loop_, runToEnd(loop_, std::move(executable), std::move(arguments), toClock(timeout)),
      asio::use_awaitable);
}

bool isExecutableFile(const std::string& path) {
  struct stat status{};
  return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
         ::faccessat(AT_FDCWD, path.c_str(), X_OK, AT_EACCESS) == 0;
}

bool canBeArgument(std::string_view text) {
  constexpr std::size_t kernelLimit = 128u << 10u;  // with the NUL at its end
  return text.size() < kernelLimit && text.find('\0') == std::string_view::npos;
}

}  // namespace glintboard
