// SPDX-License-Identifier: MIT
#include "agent/services/agent_services.h"

#include "agent/pairing/keychain_paired_device_store.h"
#include "agent_core/actions/core_audio_volume_controller.h"
#include "platform/run_on.h"
#include "protocol/deck_template_filter.h"

namespace glintboard {
namespace {

// The message of a failed outcome, of any kind of key.
template <class Outcome>
std::optional<std::string> failureOf(const Outcome& outcome) {
  const auto* error = std::get_if<1>(&outcome);
  return error == nullptr ? std::nullopt : std::optional(error->message.value_or(""));
}

}  // namespace

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

Awaitable<std::optional<std::string>> AgentServices::perform(DeckTile key) {
  switch (key.kind) {
    case DeckTileKind::app: {
      const auto installed = DeckTemplateFilter::resolveBundleId(
          key, [this](const std::string& id) { return environment_.workspace.isInstalled(id); });
      const AppLauncher launcher(environment_.workspace);
      auto launching = launcher.launch(installed.value_or(key.bundleId));
      co_return failureOf(co_await std::move(launching));
    }
    case DeckTileKind::action: {
      auto acting = runOn(environment_.executors.volumeLane(), [this, id = key.derivedId()] {
        return SystemActionRunner(
                   std::make_shared<CoreAudioVolumeController>(environment_.audioOutput))
            .perform(id);
      });
      co_return failureOf(co_await std::move(acting));
    }
    case DeckTileKind::shortcut: {
      const ShortcutsRunner runner(environment_.shortcutsExecutable, environment_.processRunner);
      auto running = runner.run(key.derivedId());
      co_return failureOf(co_await std::move(running));
    }
  }
  co_return std::nullopt;
}

}  // namespace glintboard
