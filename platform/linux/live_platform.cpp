// SPDX-License-Identifier: MIT
#include <atomic>
#include <stdexcept>

#include "platform/linux/base/host_name.h"
#include "platform/linux/base/xdg_folders.h"
#include "platform/linux/desktop/logind_sleep_watch.h"
#include "platform/linux/keychain/file_keychain.h"
#include "platform/linux/keychain/secret_service_keychain.h"
#include "platform/linux/keychain/two_place_keychain.h"
#include "platform/linux/linux_applications.h"
#include "platform/linux/network/avahi_advertiser.h"
#include "platform/linux/network/host_name_watcher.h"
#include "platform/linux/network/renaming_advertiser.h"
#include "platform/linux/process/foundation_process_runner.h"
#include "platform/linux/shortcuts/shortcut_folder.h"
#include "platform/linux/shortcuts/shortcut_icons.h"
#include "platform/linux/shortcuts/shortcuts_application.h"
#include "platform/linux/sound/pulse_audio_output.h"
#include "platform/live.h"

namespace glintboard {

struct LivePlatform::Parts {
  Parts(Executors& executors, KeychainMergeRule keychainRule)
      : folders(xdgFoldersOfEnvironment()),
        applications(executors, folders, displaysOfEnvironment()),
        processRunner(executors.service()),
        fileKeychain(applicationSupportFolder()),
        keychain(secretService, fileKeychain, std::move(keychainRule)),
        bonjourAdvertiser(
            std::make_shared<RenamingAdvertiser>(std::make_unique<AvahiAdvertiser>(), hostName)),
        hostNameWatcher(
            HostNameWatcher::start(executors.service(), HostName::machineInfoFile,
                                   [advertiser = bonjourAdvertiser, observers = nameChanges] {
                                     advertiser->checkName();
                                     observers->notify();
                                   })) {}
  ~Parts() { hostNameWatcher->stop(); }

  XdgFolders folders;
  LinuxApplications applications;
  FoundationProcessRunner processRunner;
  PulseAudioOutput audioOutput;
  SecretServiceKeychain secretService;
  FileKeychain fileKeychain;
  TwoPlaceKeychain keychain;
  std::shared_ptr<const HostName> hostName = std::make_shared<const HostName>();
  std::shared_ptr<Observers> nameChanges = std::make_shared<Observers>();
  std::shared_ptr<RenamingAdvertiser> bonjourAdvertiser;
  std::shared_ptr<HostNameWatcher> hostNameWatcher;
  LogindSleepWatch sleepWatch;
};

namespace {

std::atomic<LivePlatform*> currentPlatform = nullptr;

}  // namespace

LivePlatform::LivePlatform(Executors& executors, KeychainMergeRule keychainRule)
    : parts_(std::make_unique<Parts>(executors, std::move(keychainRule))) {
  currentPlatform = this;
}

LivePlatform::~LivePlatform() {
  currentPlatform = nullptr;
}

LivePlatform& LivePlatform::current() {
  if (auto* platform = currentPlatform.load()) {
    return *platform;
  }
  throw std::logic_error("there is no live platform");
}

WorkspaceClient WorkspaceClient::live() {
  return LivePlatform::current().workspaceClient();
}

WorkspaceClient LivePlatform::workspaceClient() {
  return withShortcutsApplication(parts_->applications.workspaceClient(),
                                  ShortcutFolder::pathIn(parts_->folders),
                                  parts_->applications.folderOpener());
}

ApplicationIconClient LivePlatform::applicationIconClient() {
  return parts_->applications.iconClient();
}

ApplicationListClient LivePlatform::applicationListClient() {
  return parts_->applications.listClient();
}

ShortcutIconClient LivePlatform::shortcutIconClient() {
  return shortcutIcons(parts_->applications.index(), parts_->folders);
}

ProcessRunning& LivePlatform::processRunner() {
  return parts_->processRunner;
}

AudioOutput& LivePlatform::audioOutput() {
  return parts_->audioOutput;
}

Keychain& LivePlatform::keychain() {
  return parts_->keychain;
}

BonjourAdvertiser& LivePlatform::bonjourAdvertiser() {
  return *parts_->bonjourAdvertiser;
}

SleepWatch& LivePlatform::sleepWatch() {
  return parts_->sleepWatch;
}

std::optional<std::string> LivePlatform::localizedName() const {
  return parts_->hostName->localizedName();
}

Observers& LivePlatform::nameChanges() {
  return *parts_->nameChanges;
}

void LivePlatform::watchRunningApplications(bool watch, std::function<void()> scanned) {
  parts_->applications.watchRunningApplications(watch, std::move(scanned));
}

}  // namespace glintboard
