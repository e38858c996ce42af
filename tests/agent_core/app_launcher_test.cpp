// SPDX-License-Identifier: MIT
#include "agent_core/apps/app_launcher.h"

#include <gtest/gtest.h>

#include "platform/executors.h"
#include "tests/support/await.h"
#include "tests/support/fake_desktop.h"

namespace glintboard {
namespace {

TEST(AppLauncher, ReturnsTheOutcomeForEachApplicationState) {
  using namespace AppLauncherOutcome;
  const auto launch = AppLauncherAction::launch;
  const auto focus = AppLauncherAction::focus;
  const auto error = [](AppErrorCode code, const char* message) {
    return Outcome(Error{"a", code, message});
  };
  const Outcome ok = Ok{"a"};
  const auto noFocus = error(AppErrorCode::focusFailed, "Failed to activate application");
  const auto absent = error(AppErrorCode::notFound, "No application found for bundle identifier");
  const auto noLaunch = error(AppErrorCode::launchFailed, "Failed to launch application");
  const auto noMemory = error(AppErrorCode::launchFailed, "no memory");
  const auto notRunning = error(AppErrorCode::notFound, "Application is not running");
  using Set = std::set<std::string>;
  const struct {
    const char* what;
    Set installed, running;
    bool activates, opens;
    const char* openFailure;
    AppLauncherAction action;
    Outcome expected;
    std::vector<std::string> calls;
  } cases[] = {
      {"running", {"a"}, {"a"}, true, true, "", launch, ok, {"activate a"}},
      {"refuses focus", {"a"}, {"a"}, false, true, "", launch, noFocus, {"activate a"}},
      {"absent", {}, {}, true, true, "", launch, absent, {}},
      {"starts", {"a"}, {}, true, true, "", launch, ok, {"open a"}},
      {"does not start", {"a"}, {}, true, false, "", launch, noLaunch, {"open a"}},
      {"fails to start", {"a"}, {}, true, true, "no memory", launch, noMemory, {"open a"}},
      {"focused", {"a"}, {"a"}, true, true, "", focus, ok, {"activate a"}},
      {"focus of what does not run", {"a"}, {}, true, true, "", focus, notRunning, {}},
  };
  Executors executors;
  for (const auto& it : cases) {
    test::FakeDesktop desktop;
    desktop.installed = it.installed;
    desktop.running = it.running;
    desktop.activates = it.activates;
    desktop.opens = it.opens;
    desktop.openFailure = it.openFailure;
    const AppLauncher launcher(desktop.client());
    EXPECT_EQ(test::await(executors.service(), launcher.perform(it.action, "a")), it.expected)
        << it.what;
    EXPECT_EQ(desktop.calls, it.calls) << it.what;
  }
}

}  // namespace
}  // namespace glintboard
