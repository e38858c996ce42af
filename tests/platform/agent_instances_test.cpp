// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>

#include "platform/atomic_file.h"
#include "platform/linux/base/runtime_folder.h"
#include "platform/linux/process/linux_agent_instances.h"
#include "platform/linux/process/process_identity.h"
#include "tests/support/child_process.h"
#include "tests/support/temporary_folder.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;

std::string lineOf(const ProcessIdentity& identity) {
  return std::to_string(identity.id) + " " + std::to_string(identity.startTime) + "\n";
}

class Instances : public testing::Test {
 protected:
  static ProcessIdentity identityOf(pid_t id) {
    return identifyProcess(id).value_or(ProcessIdentity{});
  }

  // The number of older instances that it finds; none when a younger one runs.
  std::optional<std::size_t> claim() {
    const auto older = LinuxAgentInstances(folder_.path()).claim();
    return older ? std::optional(older->size()) : std::nullopt;
  }

  const test::TemporaryFolder folder_;
  const std::filesystem::path file_ = folder_ / "glintboard-agents";
  const ProcessIdentity self_ = identityOf(::getpid());
};

TEST_F(Instances, OlderInstanceYieldsToARunningYoungerOne) {
  EXPECT_EQ(claim(), 0u);
  EXPECT_EQ(claim(), 0u) << "it never finds itself";
  const test::ChildProcess younger({"sleep", "60"});
  folder_.write("glintboard-agents", lineOf(self_) + lineOf(identityOf(younger.id())));
  EXPECT_EQ(claim(), std::nullopt);
  younger.signal(SIGKILL);
  // A zombie.
  EXPECT_TRUE(test::eventually([&] { return claim() == 0u; }));
  EXPECT_EQ(readWholeFile(file_), lineOf(self_));
}

TEST_F(Instances, DropsLinesWithoutARunningInstance) {
  test::ChildProcess stranger({"sleep", "60"});
  ASSERT_TRUE(test::eventually([&] { return identifyProcess(stranger.id()).has_value(); }));
  ProcessIdentity reused = identityOf(stranger.id());
  reused.startTime -= 1;  // an earlier process with the same id
  folder_.write("glintboard-agents", "no line\n-1 5\n0 0\n99999999999999999999 1\n4194303 1\n" +
                                         lineOf(reused) + lineOf(identityOf(::getpid())) + "1");
  EXPECT_EQ(claim(), 0u);
  EXPECT_EQ(readWholeFile(file_), lineOf(self_));
  EXPECT_FALSE(stranger.hasEnded());
}

TEST_F(Instances, IgnoresProcessesOfOtherUsers) {
  if (::geteuid() != 0) {
    GTEST_SKIP() << "only root can start a process of another user";
  }
  test::ChildProcess other({"setpriv", "--reuid=1000", "--clear-groups", "sleep", "60"});
  struct stat owner{};
  const std::string process = "/proc/" + std::to_string(other.id()) + "/stat";
  const auto startTime = identityOf(other.id()).startTime;  // while it is still root's
  ASSERT_TRUE(test::eventually(
      [&] { return ::stat(process.c_str(), &owner) == 0 && owner.st_uid == 1000; }));
  folder_.write("glintboard-agents", lineOf({startTime, other.id()}));
  EXPECT_EQ(claim(), 0u);
  EXPECT_FALSE(other.hasEnded());
}

TEST_F(Instances, HeldLockDelaysButDoesNotBlock) {
  EXPECT_EQ(claim(), 0u);
  const int held = ::open(file_.c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_EQ(::flock(held, LOCK_EX), 0);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(claim(), 0u);
  EXPECT_LT(std::chrono::steady_clock::now() - start, test::slowdown * 2s);
  ::close(held);
}

TEST_F(Instances, FindsNoOthersWithoutAFolder) {
  EXPECT_TRUE(LinuxAgentInstances(std::nullopt).claim().value().empty());
  EXPECT_TRUE(LinuxAgentInstances(folder_ / "missing").claim().value().empty());
}

TEST_F(Instances, RejectsARuntimeFolderOpenToOthers) {
  ::setenv("XDG_RUNTIME_DIR", folder_.path().c_str(), 1);
  EXPECT_EQ(runtimeFolder(), folder_.path());
  ::chmod(folder_.path().c_str(), 0777);
  EXPECT_NE(runtimeFolder(), folder_.path());
  ::setenv("XDG_RUNTIME_DIR", "relative", 1);
  const auto fallback = runtimeFolder();
  ASSERT_TRUE(fallback);
  EXPECT_TRUE(fallback->is_absolute());
}

TEST(ProcessIdentity, ParsesAnyProgramName) {
  const test::TemporaryFolder folder;
  const auto program = folder / "a ) R 1 (b";
  std::filesystem::copy_file("/bin/sleep", program);
  test::ChildProcess process({program.string(), "60"});
  const pid_t id = process.id();
  ASSERT_TRUE(test::eventually([&] {
    return test::outputOf("cat /proc/" + std::to_string(id) + "/comm") == "a ) R 1 (b\n";
  }));
  const auto identity = identifyProcess(id);
  ASSERT_TRUE(identity);
  EXPECT_GE(*identity, *identifyProcess(::getpid()));
  EXPECT_TRUE(openProcess(*identity));
  process.signal(SIGKILL);
  EXPECT_TRUE(test::eventually([&] { return !identifyProcess(id); })) << "a zombie does not run";
}

}  // namespace
}  // namespace glintboard
