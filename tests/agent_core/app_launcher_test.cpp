#include "agent_core/apps/app_launcher.h"

#include <gtest/gtest.h>

#include "agent_core/apps/listener_service_stub.h"
#include "platform/executors.h"
#include "protocol/message_factory.h"
#include "tests/support/await.h"
#include "tests/support/fake_desktop.h"

namespace glintboard {
namespace {

using namespace AppLauncherOutcome;

TEST(AppLauncher, EveryStateOfAnApplicationHasItsOutcome) {
  struct Case {
    const char* what;
    bool installed, running, activates, opens;
    const char* openFailure;
    AppLauncherAction action;
    Outcome expected;
    std::vector<std::string> calls;
  };
  const auto launch = AppLauncherAction::launch;
  const auto focus = AppLauncherAction::focus;
  const auto error = [](AppErrorCode code, const char* message) {
    return Outcome(Error{"a", code, message});
  };
  const Case cases[] = {
      {"running", true, true, true, true, "", launch, Ok{"a"}, {"activate a"}},
      {"refuses focus",
       true,
       true,
       false,
       true,
       "",
       launch,
       error(AppErrorCode::focusFailed, "Failed to activate application"),
       {"activate a"}},
      {"absent",
       false,
       false,
       true,
       true,
       "",
       launch,
       error(AppErrorCode::notFound, "No application found for bundle identifier"),
       {}},
      {"starts", true, false, true, true, "", launch, Ok{"a"}, {"open a"}},
      {"does not start",
       true,
       false,
       true,
       false,
       "",
       launch,
       error(AppErrorCode::launchFailed, "Failed to launch application"),
       {"open a"}},
      {"fails to start",
       true,
       false,
       true,
       true,
       "no memory",
       launch,
       error(AppErrorCode::launchFailed, "no memory"),
       {"open a"}},
      {"focused", true, true, true, true, "", focus, Ok{"a"}, {"activate a"}},
      {"focus of one that is not running",
       true,
       false,
       true,
       true,
       "",
       focus,
       error(AppErrorCode::notFound, "Application is not running"),
       {}},
  };
  Executors executors;
  for (const auto& it : cases) {
    test::FakeDesktop desktop;
    if (it.installed) {
      desktop.installed = {"a"};
    }
    if (it.running) {
      desktop.running = {"a"};
    }
    desktop.activates = it.activates;
    desktop.opens = it.opens;
    desktop.openFailure = it.openFailure;
    const AppLauncher launcher(desktop.client());
    EXPECT_EQ(test::await(executors.service(), launcher.perform(it.action, "a")), it.expected)
        << it.what;
    EXPECT_EQ(desktop.calls, it.calls) << it.what;
  }
}

TEST(AppWireHandler, AnswersItsTypesUnderTheRequestsIdAndLeavesOthersAlone) {
  Executors executors;
  test::FakeDesktop desktop;
  desktop.installed = {"a"};
  ListenerServiceStub stub(executors.workers(), AppWireHandler(AppLauncher(desktop.client())));
  const auto route = [&](std::string bytes) {
    return test::await(executors.service(), stub.route(std::move(bytes)));
  };
  const Uuid id = randomUuid();
  const auto launched = route(WireCodec::encode(MessageFactory::appLaunch("a", id)));
  EXPECT_EQ(*launched, WireCodec::encode(MessageFactory::appOK("a", id)));
  const auto focused = route(WireCodec::encode(MessageFactory::appFocus("a", id)));
  EXPECT_EQ(*focused, WireCodec::encode(MessageFactory::appError(
                          "a", AppErrorCode::notFound, "Application is not running", id)));
  EXPECT_EQ(*route(WireCodec::encode(MessageFactory::ping(WireDate::now(), id))), std::nullopt);
  EXPECT_FALSE(route("no json"));
  EXPECT_FALSE(route(WireCodec::encode(WireMessage<EmptyPayload>{"app.launch", id, {}})));
}

TEST(WorkspaceClient, PicksInstalledAndRunningOutOfARange) {
  test::FakeDesktop desktop;
  desktop.installed = {"a", "b"};
  desktop.running = {"b"};
  const auto client = desktop.client();
  const std::vector<std::string> among = {"b", "a", "b", "c"};
  EXPECT_EQ(client.installedBundleIds(among), (std::set<std::string>{"a", "b"}));
  EXPECT_EQ(client.runningBundleIds(among), (std::set<std::string>{"b"}));
}

}  // namespace
}  // namespace glintboard
