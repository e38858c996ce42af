// SPDX-License-Identifier: MIT
#include "agent/services/agent_services.h"

#include "agent/pairing/keychain_paired_device_store.h"
#include "agent_core/actions/core_audio_volume_controller.h"

namespace glintboard {

AgentServices::AgentServices(AgentEnvironment environment, DeckStore& deckStore)
    : environment_(std::move(environment)),
      pairingService_(environment_.executors.service(), environment_.executors.keychainLane(),
                      std::make_unique<KeychainPairedDeviceStore>(environment_.keychain)),
      appIconProvider_(environment_.executors.workerStrand(), environment_.applicationIcons),
      // On the same strand as the application icons, so that both kinds are read without a change
      // of threads.
      shortcutIconProvider_(appIconProvider_.executor(), environment_.shortcutIcons),
      listenerService_(ListenerService::create(
          environment_.executors.service(),
          ListenerService::Parts{
              .dispatcher =
                  {.pairingService = pairingService_,
                   .appMessageHandler = AppMessageHandler(AppLauncher(environment_.workspace)),
                   .actionMessageHandler = ActionMessageHandler(SystemActionRunner(
                       std::make_shared<CoreAudioVolumeController>(environment_.audioOutput))),
                   .shortcutWireHandler =
                       ShortcutWireHandler(ShortcutMessageHandler(ShortcutsRunner(
                           environment_.shortcutsExecutable, environment_.processRunner))),
                   .deckStore = deckStore,
                   .iconProvider = appIconProvider_,
                   .shortcutIconProvider = shortcutIconProvider_,
                   .workspace = environment_.workspace,
                   .actionLane = environment_.executors.volumeLane(),
                   .watchRunningApplications = environment_.watchRunningApplications},
              .bonjour = environment_.bonjour,
              .localizedName = environment_.localizedName},
          environment_.port)) {}

}  // namespace glintboard
