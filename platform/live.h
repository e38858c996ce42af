// SPDX-License-Identifier: MIT
// The platform interfaces on the real desktop.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/agent_instances.h"
#include "platform/application_icon_client.h"
#include "platform/application_list_client.h"
#include "platform/audio_output.h"
#include "platform/bonjour.h"
#include "platform/executors.h"
#include "platform/keychain.h"
#include "platform/observers.h"
#include "platform/process_running.h"
#include "platform/shortcut_icon_client.h"
#include "platform/sleep_watch.h"
#include "platform/workspace_client.h"

namespace glintboard {

// Owns the real implementation of every platform interface. Create one, in main. The clients and
// references are valid as long as this object, which must outlive the work on `executors`.
class LivePlatform {
 public:
  // `keychainRule` decides which of two stored pairings is the later one.
  LivePlatform(Executors& executors, KeychainMergeRule keychainRule);
  ~LivePlatform();

  // The existing instance, for default arguments. Throws std::logic_error without one.
  static LivePlatform& current();

  WorkspaceClient workspaceClient();
  ApplicationIconClient applicationIconClient();
  ApplicationListClient applicationListClient();
  ShortcutIconClient shortcutIconClient();
  ProcessRunning& processRunner();
  AudioOutput& audioOutput();
  Keychain& keychain();
  BonjourAdvertiser& bonjourAdvertiser();
  SleepWatch& sleepWatch();

  // The computer's name as its user sees it, or none. Any thread.
  std::optional<std::string> localizedName() const;
  // Notified when that name may have changed, on the service loop.
  Observers& nameChanges();
  // Switches the watch of running applications; while it is off, none are scanned for.
  // `scanned` is called on the service loop once the first scan has ended. Any thread.
  void watchRunningApplications(bool watch, std::function<void()> scanned);

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

// The other agents of this user. Needs no LivePlatform, because it is used before one exists.
std::unique_ptr<AgentInstances> liveAgentInstances();

// The agent's own folder in the user's data folder; not created here.
std::filesystem::path applicationSupportFolder();
// The same in the user's state folder, for what outlives the agent but is no document.
std::filesystem::path applicationStateFolder();

}  // namespace glintboard
