#include <QImage>

#include "platform/linux/avahi_advertiser.h"
#include "platform/linux/file_keychain.h"
#include "platform/linux/foundation_process_runner.h"
#include "platform/linux/host_name.h"
#include "platform/linux/linux_applications.h"
#include "platform/linux/pulse_audio_output.h"
#include "platform/linux/xdg_folders.h"
#include "platform/live.h"

namespace glintboard {

struct LivePlatform::Parts {
  explicit Parts(Executors& executors)
      : applications(executors, xdgFoldersOfEnvironment(), displaysOfEnvironment()),
        processRunner(executors.service()),
        keychain(applicationSupportFolder()) {}

  LinuxApplications applications;
  FoundationProcessRunner processRunner;
  PulseAudioOutput audioOutput;
  FileKeychain keychain;
  AvahiAdvertiser bonjourAdvertiser;
  HostName hostName;
};

LivePlatform::LivePlatform(Executors& executors) : parts_(std::make_unique<Parts>(executors)) {}

LivePlatform::~LivePlatform() = default;

WorkspaceClient LivePlatform::workspaceClient() {
  return parts_->applications.workspaceClient();
}

ApplicationIconClient LivePlatform::applicationIconClient() {
  return parts_->applications.iconClient();
}

// No Shortcut has an icon as long as nothing here can read the user's Shortcuts.
ShortcutIconClient LivePlatform::shortcutIconClient() {
  return {[](const std::string&, int) { return QImage(); },
          [](int) { return std::vector<ShortcutIconClient::Icon>(); }};
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
  return parts_->bonjourAdvertiser;
}

std::optional<std::string> LivePlatform::localizedName() const {
  return parts_->hostName.localizedName();
}

void LivePlatform::watchRunningApplications(bool watch) {
  parts_->applications.watchRunningApplications(watch);
}

}  // namespace glintboard
