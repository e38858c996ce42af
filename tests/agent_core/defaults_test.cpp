// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "agent_core/actions/action_handlers.h"
#include "agent_core/apps/listener_service_stub.h"
#include "agent_core/shortcuts/shortcut_handlers.h"
#include "agent_core/shortcuts/shortcuts_catalog.h"
#include "platform/live.h"
#include "protocol/message_factory.h"
#include "tests/platform/desktop_folders.h"
#include "tests/support/await.h"

namespace glintboard {
namespace {

TEST(Defaults, UseTheLivePlatform) {
  const test::DesktopFolders desktop;
  desktop.entry("system/applications/app.desktop", "Exec=true\n");
  const std::string id = "0F8FAD5B-D9CB-469F-A165-70867728950E";
  const auto tool = desktop.program("tool", "#!/bin/sh\necho 'Tea (" + id + ")'\n").string();
  for (const char* display : {"DISPLAY", "WAYLAND_DISPLAY"}) {
    ::unsetenv(display);
  }
  ::setenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nonexistent", 1);
  ::setenv("PULSE_SERVER", "unix:/nonexistent", 1);
  ::setenv("XDG_DATA_HOME", desktop.folders.dataHome.c_str(), 1);
  ::setenv("XDG_DATA_DIRS", desktop.folders.dataDirs.back().c_str(), 1);
  EXPECT_THROW(WorkspaceClient::live(), std::logic_error);

  Executors executors;
  LivePlatform platform(executors, {});
  const auto wait = [&](auto work) { return test::await(executors.service(), std::move(work)); };
  EXPECT_TRUE(WorkspaceClient::live().isInstalled("app"));
  ListenerServiceStub stub(executors.workers());
  const Uuid request = randomUuid();
  EXPECT_EQ(*wait(stub.route(WireCodec::encode(MessageFactory::appFocus("app", request)))),
            WireCodec::encode(MessageFactory::appError("app", AppErrorCode::notFound,
                                                       "Application is not running", request)));
  EXPECT_EQ(wait(ShortcutsCatalog(tool).list()).at(0).id(), id);
  EXPECT_EQ(wait(ShortcutsRunner(tool).run(id)).index(), 0u);
  EXPECT_EQ(wait(ShortcutMessageHandler().handleRun(id, request)).index(), 1u)
      << "there is no such Shortcut";
  EXPECT_EQ(ActionMessageHandler().handleRun("system.volume.up", request).index(), 1u);
}

}  // namespace
}  // namespace glintboard
