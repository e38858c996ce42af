// SPDX-License-Identifier: MIT
#include "agent/app/single_instance_guard.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include "platform/linux/process/linux_agent_instances.h"
#include "platform/linux/process/process_identity.h"
#include "tests/support/child_process.h"
#include "tests/support/test_agent.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;

std::chrono::steady_clock::duration timed(const std::function<void()>& call) {
  const auto began = std::chrono::steady_clock::now();
  call();
  return std::chrono::steady_clock::now() - began;
}

// A child of the test is always younger than the test, so the agent of this test is a child.
TEST(SingleInstanceGuard, TerminatesOlderAgentsAndKillsUnresponsiveOnes) {
  const test::TemporaryFolder folder;
  const auto trap = [&](const std::string& action, const std::string& ready) {
    return std::vector<std::string>{"sh", "-c",
                                    "trap '" + action + "' TERM; touch " +
                                        (folder / ready).string() +
                                        "; while :; do sleep 0.01; done"};
  };
  test::ChildProcess polite(trap("touch " + (folder / "asked").string() + "; exit", "polite"));
  test::ChildProcess stubborn(trap("", "stubborn"));
  for (const char* ready : {"polite", "stubborn"}) {
    ASSERT_TRUE(test::eventually([&] { return std::filesystem::exists(folder / ready); }));
  }
  std::string lines;
  for (const auto& each : {polite.id(), stubborn.id()}) {
    const auto identity = identifyProcess(each).value();
    lines += std::to_string(each) + " " + std::to_string(identity.startTime) + "\n";
  }
  folder.write("glintboard-agents", lines);
  const pid_t younger = ::fork();
  if (younger == 0) {
    LinuxAgentInstances instances(folder.path());
    ::_exit(SingleInstanceGuard::enforce(instances, test::freePort()) ? 0 : 1);
  }
  int status = -1;
  ::waitpid(younger, &status, 0);
  EXPECT_EQ(status, 0);
  EXPECT_TRUE(test::eventually([&] { return polite.hasEnded() && stubborn.hasEnded(); }));
  EXPECT_TRUE(std::filesystem::exists(folder / "asked"));
}

TEST(SingleInstanceGuard, WaitsForThePortUpToItsLimit) {
  const auto port = test::freePort();
  auto held = std::make_unique<FileDescriptor>(test::holdPort(port));
  const test::TemporaryFolder folder;
  LinuxAgentInstances alone(folder.path());
  EXPECT_LT(timed([&] { EXPECT_TRUE(SingleInstanceGuard::enforce(alone, port)); }),
            test::slowdown * 90ms);
  EXPECT_LT(timed([&] { SingleInstanceGuard::waitForPortRelease(0, port); }),
            test::slowdown * 90ms);
  EXPECT_GE(timed([&] { SingleInstanceGuard::waitForPortRelease(3, port); }), 300ms);
  std::thread release([&] {
    std::this_thread::sleep_for(150ms);
    held.reset();
  });
  EXPECT_LT(timed([&] { SingleInstanceGuard::waitForPortRelease(50, port); }), test::slowdown * 2s);
  release.join();
}

}  // namespace
}  // namespace glintboard
