#include "agent/connection/single_instance_guard.h"

#include <gtest/gtest.h>

#include <chrono>

#include "tests/support/test_agent.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;
using Calls = std::vector<std::string>;

class FakeInstance : public AgentInstance {
 public:
  FakeInstance(Calls& calls, bool obeys, bool ends) : calls_(calls), obeys_(obeys), ends_(ends) {}
  int processIdentifier() const override { return 7; }
  bool terminate() override {
    calls_.push_back("terminate");
    return obeys_;
  }
  bool forceTerminate() override {
    calls_.push_back("force");
    return true;
  }
  bool isTerminated() override { return ends_; }

 private:
  Calls& calls_;
  bool obeys_;
  bool ends_;
};

class FakeInstances : public AgentInstances {
 public:
  std::vector<std::unique_ptr<AgentInstance>> older;
  bool youngerRuns = false;
  std::optional<std::vector<std::unique_ptr<AgentInstance>>> claim() override {
    if (youngerRuns) {
      return std::nullopt;
    }
    return std::move(older);
  }
};

std::chrono::milliseconds timed(const std::function<void()>& call) {
  const auto began = std::chrono::steady_clock::now();
  call();
  return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() -
                                                               began);
}

TEST(SingleInstanceGuard, EndsOthersAsPolitelyAsTheyAllow) {
  struct Case {
    bool obeys, ends;
    Calls calls;
  };
  const Case cases[] = {{true, true, {"terminate"}},
                        {false, true, {"terminate", "force"}},
                        {true, false, {"terminate", "force"}},
                        {false, false, {"terminate", "force", "force"}}};
  for (const auto& [obeys, ends, expected] : cases) {
    Calls calls;
    FakeInstances instances;
    instances.older.push_back(std::make_unique<FakeInstance>(calls, obeys, ends));
    EXPECT_TRUE(SingleInstanceGuard::enforce(instances, test::freePort()));
    EXPECT_EQ(calls, expected);
  }
}

TEST(SingleInstanceGuard, AloneItNeitherWaitsNorProbesAndYieldsToAYounger) {
  const auto port = test::freePort();
  const auto held = test::holdPort(port);
  FakeInstances instances;
  EXPECT_LT(timed([&] { EXPECT_TRUE(SingleInstanceGuard::enforce(instances, port)); }), 90ms);
  instances.youngerRuns = true;
  EXPECT_FALSE(SingleInstanceGuard::enforce(instances, port));
}

TEST(SingleInstanceGuard, WaitsForThePortAsLongAsItMay) {
  const auto port = test::freePort();
  auto held = std::make_unique<FileDescriptor>(test::holdPort(port));
  EXPECT_LT(timed([&] { SingleInstanceGuard::waitForPortRelease(0, port); }), 90ms);
  EXPECT_GE(timed([&] { SingleInstanceGuard::waitForPortRelease(3, port); }), 300ms);
  std::thread release([&] {
    std::this_thread::sleep_for(150ms);
    held.reset();
  });
  EXPECT_LT(timed([&] { SingleInstanceGuard::waitForPortRelease(50, port); }), 2s);
  release.join();
}

}  // namespace
}  // namespace glintboard
