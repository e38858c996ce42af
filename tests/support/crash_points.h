// SPDX-License-Identifier: MIT
// Kills a process at each of its system calls, to check what it leaves on disk.
#pragma once

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <functional>

namespace glintboard::test {

namespace detail {

// Lets the traced child run until its system call number `last` and kills it before that call.
// False if the child ended first.
inline bool killBeforeCall(pid_t child, int last) {
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_TRUE(WIFSTOPPED(status)) << "this needs a system that lets a test trace its children";
  ::ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
  // The child stops before and after each call.
  for (int stops = 0; stops < 2 * last - 1;) {
    ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
    ::waitpid(child, &status, 0);
    if (!WIFSTOPPED(status)) {
      EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS) << status;
      return false;
    }
    stops += WSTOPSIG(status) == (SIGTRAP | 0x80) ? 1 : 0;
  }
  ::kill(child, SIGKILL);
  ::waitpid(child, &status, 0);
  return true;
}

}  // namespace detail

// Runs `prepare`, then `work` in a child process that is killed before its n-th system call, then
// `check`; for n = 1, 2, … until `work` completes. The calling process must have no other threads,
// because the child would lack them.
inline void killAtEveryCall(const std::function<void()>& prepare, const std::function<void()>& work,
                            const std::function<void()>& check) {
  bool killed = true;
  for (int last = 1; killed && !testing::Test::HasFailure(); ++last) {
    SCOPED_TRACE("killed before its system call " + std::to_string(last));
    prepare();
    const pid_t child = ::fork();
    if (child == 0) {
      ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
      ::raise(SIGSTOP);
      work();
      std::_Exit(EXIT_SUCCESS);
    }
    killed = detail::killBeforeCall(child, last);
    check();
    EXPECT_TRUE(killed || last > 3) << "the work makes system calls";
  }
}

}  // namespace glintboard::test
