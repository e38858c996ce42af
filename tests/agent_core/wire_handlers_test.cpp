// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "agent_core/actions/action_handlers.h"
#include "agent_core/apps/listener_service_stub.h"
#include "agent_core/shortcuts/shortcut_handlers.h"
#include "platform/executors.h"
#include "protocol/message_factory.h"
#include "tests/support/await.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/fakes.h"

namespace glintboard {
namespace {

TEST(WireHandlers, AnswerOnlyTheirTypesWithTheRequestsId) {
  using namespace MessageFactory;
  Executors executors;
  test::FakeDesktop desktop;
  desktop.installed = {"a"};
  const auto volume = std::make_shared<MockVolumeController>();
  test::FakeRunner runner;
  ListenerServiceStub apps(executors.workers(), AppWireHandler(AppLauncher(desktop.client())));
  const ActionWireHandler actions{ActionMessageHandler(SystemActionRunner(volume))};
  const ShortcutWireHandler shortcuts{ShortcutMessageHandler(ShortcutsRunner("/bin/true", runner))};
  const auto replies = [&](const std::string& bytes) {
    return std::vector{test::await(executors.service(), apps.route(bytes)), actions.handle(bytes),
                       test::await(executors.service(), shortcuts.handle(bytes))};
  };
  // The replies of all three handlers.
  const auto ask = [&](const auto& request) {
    std::string all;
    for (const WireReply& reply : replies(WireCodec::encode(request))) {
      all += reply.value().value_or("");
    }
    return all;
  };
  const Uuid id = randomUuid();
  EXPECT_EQ(ask(appLaunch("a", id)), WireCodec::encode(appOK("a", id)));
  EXPECT_EQ(ask(appFocus("a", id)), WireCodec::encode(appError("a", AppErrorCode::notFound,
                                                               "Application is not running", id)));
  EXPECT_EQ(ask(actionRun("system.volume.mute", id)),
            WireCodec::encode(actionOK("system.volume.mute", id)));
  EXPECT_EQ(ask(actionRun("System.volume.mute", id)),
            WireCodec::encode(
                actionError("System.volume.mute", ActionErrorCode::unknown, "Unknown action", id)));
  EXPECT_EQ(volume->toggleMuteCount, 1);
  volume->shouldThrow = true;
  EXPECT_EQ(
      ask(actionRun("system.volume.up", id)),
      WireCodec::encode(actionError("system.volume.up", ActionErrorCode::failed, "simulated", id)));
  EXPECT_EQ(ask(shortcutRun("x", "Label", id)), WireCodec::encode(shortcutOK("x", id)));
  EXPECT_EQ(ask(ping(WireDate::now(), id)), "");
  for (const WireReply& reply : replies("{}")) {
    EXPECT_FALSE(reply);
  }
}

}  // namespace
}  // namespace glintboard
