#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <fstream>

#include "platform/atomic_file.h"
#include "platform/linux/linux_agent_instances.h"
#include "platform/linux/process_identity.h"
#include "platform/linux/runtime_folder.h"
#include "tests/support/child_process.h"
#include "tests/support/temporary_folder.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;
using Identifiers = std::vector<int>;

std::string lineOf(const ProcessIdentity& identity) {
  return std::to_string(identity.id) + " " + std::to_string(identity.startTime) + "\n";
}

class Instances : public testing::Test {
 protected:
  static ProcessIdentity identityOf(pid_t id) {
    return identifyProcess(id).value_or(ProcessIdentity{});
  }

  std::optional<Identifiers> claim() {
    const auto older = LinuxAgentInstances(folder_.path()).claim();
    if (!older) {
      return std::nullopt;
    }
    Identifiers identifiers;
    for (const auto& instance : *older) {
      identifiers.push_back(instance->processIdentifier());
    }
    return identifiers;
  }

  // Calls claim() in a younger process, which stays, and returns the number of older ones it saw.
  int claimInYoungerProcess(pid_t& child) {
    int ends[2];
    EXPECT_EQ(::pipe(ends), 0);
    std::this_thread::sleep_for(30ms);  // the next tick of the clock that start times are told in
    child = ::fork();
    if (child == 0) {
      const auto seen = claim();
      const int count = seen ? static_cast<int>(seen->size()) : -1;
      EXPECT_EQ(::write(ends[1], &count, sizeof count), ssize_t{sizeof count});
      ::pause();
    }
    int count = -2;
    EXPECT_EQ(::read(ends[0], &count, sizeof count), ssize_t{sizeof count});
    ::close(ends[0]);
    ::close(ends[1]);
    return count;
  }

  const test::TemporaryFolder folder_;
  const std::filesystem::path file_ = folder_ / "glintboard-agents";
  const ProcessIdentity self_ = identityOf(::getpid());
};

TEST_F(Instances, TheYoungestStaysWhateverTheOrderInWhichTheyLook) {
  EXPECT_EQ(claim(), Identifiers{});
  EXPECT_EQ(claim(), Identifiers{}) << "it never finds itself";
  pid_t child = 0;
  EXPECT_EQ(claimInYoungerProcess(child), 1);
  EXPECT_EQ(claim(), std::nullopt) << "a younger one is running";
  ::kill(child, SIGKILL);
  // Dead, and not yet collected by its parent.
  EXPECT_TRUE(test::eventually([&] { return claim() == Identifiers{}; }));
  ::waitpid(child, nullptr, 0);
  EXPECT_EQ(claim(), Identifiers{});
  EXPECT_EQ(readWholeFile(file_), lineOf(self_));
}

TEST_F(Instances, DropsLinesThatNameNoInstance) {
  test::ChildProcess stranger({"sleep", "60"});
  ASSERT_TRUE(test::eventually([&] { return identifyProcess(stranger.id()).has_value(); }));
  ProcessIdentity reused = identityOf(stranger.id());
  reused.startTime -= 1;  // its number was another process's before
  folder_.write("glintboard-agents", "no line\n-1 5\n0 0\n99999999999999999999 1\n4194303 1\n" +
                                         lineOf(reused) + lineOf(identityOf(::getpid())) + "1");
  EXPECT_EQ(claim(), Identifiers{});
  EXPECT_EQ(readWholeFile(file_), lineOf(self_));
  EXPECT_FALSE(stranger.hasEnded());
}

TEST_F(Instances, NeverFindsAProcessOfAnotherUser) {
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
  EXPECT_EQ(claim(), Identifiers{});
  EXPECT_FALSE(other.hasEnded());
}

TEST_F(Instances, AHeldLockDelaysButDoesNotBlock) {
  EXPECT_EQ(claim(), Identifiers{});
  const int held = ::open(file_.c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_EQ(::flock(held, LOCK_EX), 0);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(claim(), Identifiers{});
  EXPECT_LT(std::chrono::steady_clock::now() - start, test::patience * 2s);
  ::close(held);
}

TEST_F(Instances, WithoutAFolderThereAreNoOthers) {
  EXPECT_TRUE(LinuxAgentInstances(std::nullopt).claim().value().empty());
  EXPECT_TRUE(LinuxAgentInstances(folder_ / "missing").claim().value().empty());
}

TEST_F(Instances, TheRuntimeFolderIsTheUsersAlone) {
  ::setenv("XDG_RUNTIME_DIR", folder_.path().c_str(), 1);
  EXPECT_EQ(runtimeFolder(), folder_.path());
  ::chmod(folder_.path().c_str(), 0777);
  EXPECT_NE(runtimeFolder(), folder_.path());
  ::setenv("XDG_RUNTIME_DIR", "relative", 1);
  const auto fallback = runtimeFolder();
  ASSERT_TRUE(fallback);
  EXPECT_TRUE(fallback->is_absolute());
}

TEST(ProcessIdentity, ReadsPastAnyProgramName) {
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
