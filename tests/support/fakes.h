// SPDX-License-Identifier: MIT
// Doubles of the platform's interfaces, for tests of the logic above them.
#pragma once

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/audio_output.h"
#include "platform/bonjour.h"
#include "platform/keychain.h"
#include "platform/process_running.h"
#include "platform/shortcut_icon_client.h"

namespace glintboard::test {

struct Sound {
  float volume = 0.5F;
  bool muted = false;
  bool present = true;
  std::string failing;  // the operation that fails
};

class FakeDevice : public AudioOutputDevice {
 public:
  explicit FakeDevice(Sound& sound) : sound_(sound) {}
  float volume() override { return check("read volume"), sound_.volume; }
  void setVolume(float volume) override { check("write volume"), sound_.volume = volume; }
  bool isMuted() override { return check("read mute"), sound_.muted; }
  void setMuted(bool muted) override { check("write mute"), sound_.muted = muted; }

 private:
  void check(const std::string& operation) const {
    if (sound_.failing == operation) {
      throw AudioError(-7);
    }
  }
  Sound& sound_;
};

class FakeOutput : public AudioOutput {
 public:
  explicit FakeOutput(Sound& sound) : sound_(sound) {}
  std::unique_ptr<AudioOutputDevice> defaultOutputDevice() override {
    return sound_.present ? std::make_unique<FakeDevice>(sound_) : nullptr;
  }

 private:
  Sound& sound_;
};

// Ends every process as the test says.
class FakeRunner : public ProcessRunning {
 public:
  ProcessRunResult result;
  std::string startFailure;
  std::vector<std::string> arguments;

  Awaitable<ProcessRunResult> run(std::string, std::vector<std::string> given,
                                  std::chrono::duration<double>) override {
    arguments = std::move(given);
    if (!startFailure.empty()) {
      throw std::runtime_error(startFailure);
    }
    co_return result;
  }
};

// A keychain in memory that can be told to fail, or to hang when it is read.
class FakeKeychain : public Keychain {
 public:
  std::map<std::string, std::string> items;
  std::atomic<KeychainStatus> failure = keychainSuccess;
  std::atomic<KeychainStatus> readFailure = keychainSuccess;
  std::atomic<bool> hangs = false;
  std::atomic<int> reads = 0;

  KeychainStatus copyMatching(const KeychainQuery& query, std::string& data) override {
    // Who has seen the count may set another failure for the next reading.
    const KeychainStatus refusal = readFailure;
    ++reads;
    hangs.wait(true);
    const auto status = refusal == keychainSuccess ? find(query) : refusal;
    if (status == keychainSuccess) {
      data = items[key(query)];
    }
    return status;
  }
  KeychainStatus update(const KeychainQuery& query, const std::string& data) override {
    const auto status = find(query);
    if (status == keychainSuccess) {
      items[key(query)] = data;
    }
    return status;
  }
  KeychainStatus add(const KeychainQuery& query, const std::string& data) override {
    return items.emplace(key(query), data).second ? failure.load() : keychainDuplicateItem;
  }
  KeychainStatus remove(const KeychainQuery& query) override {
    const auto status = find(query);
    if (status == keychainSuccess) {
      items.erase(key(query));
    }
    return status;
  }
  void watch(std::function<void()> told) override {
    const std::scoped_lock lock(mutex_);
    told_ = std::move(told);
  }
  void recover() {
    hangs = false;
    hangs.notify_all();
  }
  // Tells whoever watches.
  void tell() {
    const std::scoped_lock lock(mutex_);
    if (told_) {
      told_();
    }
  }
  bool isWatched() {
    const std::scoped_lock lock(mutex_);
    return told_ != nullptr;
  }

 private:
  KeychainStatus find(const KeychainQuery& query) const {
    const bool isThere = items.contains(key(query));
    return failure != keychainSuccess || isThere ? failure.load() : keychainItemNotFound;
  }
  static std::string key(const KeychainQuery& query) { return query.service + "/" + query.account; }

  std::mutex mutex_;
  std::function<void()> told_;
};

// Remembers what is advertised.
class FakeBonjour : public BonjourAdvertiser {
 public:
  std::atomic<int> published = 0;
  std::atomic<int> withdrawn = 0;
  std::atomic<bool> isAdvertised = false;
  void publish(const BonjourService&) override {
    ++published;
    isAdvertised = true;
  }
  void withdraw() override {
    ++withdrawn;
    isAdvertised = false;
  }
};

// A user without Shortcuts.
inline ShortcutIconClient noShortcutIcons() {
  return {[](const std::string&) { return std::optional<ShortcutIconClient::Icon>(); },
          [] { return std::vector<ShortcutIconClient::Icon>(); }};
}

}  // namespace glintboard::test
