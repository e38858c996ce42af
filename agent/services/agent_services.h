// SPDX-License-Identifier: MIT
// The long-lived services.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "agent/connection/listener_service.h"
#include "agent/decks/deck_store.h"
#include "agent/pairing/pairing_service.h"
#include "agent_core/icons/app_icon_provider.h"
#include "agent_core/icons/shortcut_icon_provider.h"
#include "agent_core/shortcuts/shortcuts_catalog.h"
#include "platform/application_icon_client.h"
#include "platform/audio_output.h"
#include "platform/bonjour.h"
#include "platform/executors.h"
#include "platform/keychain.h"
#include "platform/observers.h"
#include "platform/process_running.h"
#include "platform/shortcut_icon_client.h"

namespace glintboard {

// The desktop, as the services use it. The references must outlive the services.
struct AgentEnvironment {
  Executors& executors;
  WorkspaceClient workspace;
  ApplicationIconClient applicationIcons;
  ShortcutIconClient shortcutIcons;
  ProcessRunning& processRunner;
  AudioOutput& audioOutput;
  Keychain& keychain;
  BonjourAdvertiser& bonjour;
  std::function<std::optional<std::string>()> localizedName;
  // Notified when that name may have changed.
  Observers& nameChanges;
  RunningWatch::Switch watchRunningApplications;
  std::uint16_t port = GlintboardService::defaultPort;
  std::string shortcutsExecutable = ShortcutsCatalog::defaultExecutable;
};

// Creates, connects and owns the pairing, the icon providers and the listener. The accessors may be
// called on any thread.
class AgentServices {
 public:
  // `deckStore` must outlive the services. Throws SecureRandomError when the system gives no random
  // bytes.
  AgentServices(AgentEnvironment environment, DeckStore& deckStore);

  PairingService& pairingService() { return pairingService_; }
  ListenerService& listenerService() { return *listenerService_; }
  ShortcutIconProvider& shortcutIconProvider() { return shortcutIconProvider_; }
  // Does what a key does when a phone taps it. Returns why that failed, in English, or nothing. Any
  // executor; takes as long as a Shortcut may. Never throws.
  Awaitable<std::optional<std::string>> perform(DeckTile key);
  const AgentEnvironment& environment() const { return environment_; }

 private:
  AgentEnvironment environment_;
  PairingService pairingService_;
  AppIconProvider appIconProvider_;
  ShortcutIconProvider shortcutIconProvider_;
  std::shared_ptr<ListenerService> listenerService_;
};

}  // namespace glintboard
