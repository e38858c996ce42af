// SPDX-License-Identifier: MIT
#include "agent/app/display_loss.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <QtGlobal>
#include <cstdlib>

namespace glintboard {
namespace {

// Exits with the code of the restarted program, or with 3 if an exit handler runs first.
void lose(void (*display)()) {
  const DisplayLoss loss({"again", "--gtest_list_tests"});
  std::atexit([] { std::_Exit(3); });
  display();
}

TEST(DisplayLoss, RestartsBeforeExitHandlersRun) {
  void (*const waysToEnd[])() = {[] { std::exit(1); }, [] { ::_exit(1); },
                                 [] { qFatal("the display is gone"); },
                                 // A child process exits normally.
                                 [] {
                                   if (::fork() == 0) {
                                     ::_exit(1);
                                   }
                                   std::exit(1);
                                 }};
  for (auto* const way : waysToEnd) {
    EXPECT_EXIT(lose(way), testing::ExitedWithCode(EXIT_SUCCESS), "starts again without it");
  }
  EXPECT_EXIT(lose([] { ::raise(SIGSEGV); }), testing::ExitedWithCode(EXIT_SUCCESS),
              "the start crashed");
  EXPECT_EXIT(
      {
        lose([] {});
        std::exit(4);
      },
      testing::ExitedWithCode(3), "")
      << "without a DisplayLoss";
}

}  // namespace
}  // namespace glintboard
