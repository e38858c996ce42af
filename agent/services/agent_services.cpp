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
      // By turns with the other, so that a deck's icons are asked for without a way between
      // threads.
      shortcutIconProvider_(appIconProvider_.executor(), environment_.shortcutIcons),
      listenerService_(ListenerService::create(
          environment_.executors.service(),
          ListenerService::Parts{
              pairingService_, AppMessageHandler(AppLauncher(environment_.workspace)),
              ActionMessageHandler(SystemActionRunner(
                  std::make_shared<CoreAudioVolumeController>(environment_.audioOutput))),
              ShortcutWireHandler(ShortcutMessageHandler(
                  ShortcutsRunner(environment_.shortcutsExecutable, environment_.processRunner))),
              deckStore, appIconProvider_, shortcutIconProvider_, environment_.workspace,
              environment_.bonjour, environment_.localizedName, environment_.executors.volumeLane(),
              environment_.watchRunningApplications},
          environment_.port)) {}

}  // namespace glintboard
