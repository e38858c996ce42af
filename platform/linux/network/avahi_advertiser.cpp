// SPDX-License-Identifier: MIT
#include "platform/linux/network/avahi_advertiser.h"

#include <avahi-common/alternative.h>
#include <avahi-common/domain.h>
#include <avahi-common/error.h>
#include <avahi-common/malloc.h>
#include <avahi-common/timeval.h>
#include <glib.h>
#include <sys/eventfd.h>

#include <algorithm>
#include <utility>

#include "platform/linux/base/utf8_text.h"
#include "platform/log.h"
#include "protocol/utf8.h"

namespace glintboard {
namespace {

// Milliseconds.
constexpr unsigned minRetryPause = 3000;
constexpr unsigned maxRetryPause = 30'000;

// libdbus aborts the process for text that is not UTF-8, and a DNS label has at most 63 bytes.
std::string networkName(const std::string& name) {
  const std::unique_ptr<char, decltype(&::g_free)> valid(
      ::g_utf8_make_valid(name.data(), static_cast<gssize>(name.size())), &::g_free);
  return std::string(wholeCharacters(valid.get(), AVAHI_LABEL_MAX - 1));
}

}  // namespace

AvahiAdvertiser::AvahiAdvertiser()
    : wakeUp_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)), poll_(::avahi_threaded_poll_new()) {
  if (poll_ && wakeUp_) {
    const AvahiPoll* api = ::avahi_threaded_poll_get(poll_.get());
    // The watch and the timeout are released with their poll.
    api->watch_new(
        api, wakeUp_.get(), AVAHI_WATCH_IN,
        [](AvahiWatch*, int, AvahiWatchEvent, void* self) {
          static_cast<AvahiAdvertiser*>(self)->update();
        },
        this);
    nextTry_ = api->timeout_new(
        api, nullptr,
        [](AvahiTimeout*, void* self) { static_cast<AvahiAdvertiser*>(self)->update(); }, this);
    if (::avahi_threaded_poll_start(poll_.get()) == 0) {
      return;
    }
  }
  log::warning("Bonjour: cannot start Avahi's event loop");
}

AvahiAdvertiser::~AvahiAdvertiser() {
  if (poll_) {
    ::avahi_threaded_poll_stop(poll_.get());
  }
  group_.reset();
  client_.reset();
}

void AvahiAdvertiser::want(std::optional<BonjourService> service) {
  {
    const std::lock_guard lock(mutex_);
    wanted_ = std::move(service);
    wantedChanged_ = true;
  }
  wake();
}

void AvahiAdvertiser::wake() {
  [[maybe_unused]] const int full = ::eventfd_write(wakeUp_.get(), 1);
}

void AvahiAdvertiser::update() {
  eventfd_t ignored = 0;
  ::eventfd_read(wakeUp_.get(), &ignored);
  if (client_ && clientState_ == AVAHI_CLIENT_FAILURE) {
    group_.reset();
    client_.reset();
  }
  takeWanted();
  if (!service_) {
    return;
  }
  if (!client_) {
    name_ = networkName(service_->name);
    createClient();
  }
  if (!client_ || clientState_ != AVAHI_CLIENT_S_RUNNING) {
    group_.reset();
    return;
  }
  if (std::exchange(failed_, false)) {
    group_.reset();
  }
  if (collided_) {
    group_.reset();
    takeNextName();
  }
  if (!group_) {
    registerService();
  }
}

void AvahiAdvertiser::tryLater() {
  timeval time{};
  ::avahi_elapse_time(&time, pause_, 0);
  pause_ = std::min(pause_ * 2, maxRetryPause);
  ::avahi_threaded_poll_get(poll_.get())->timeout_update(nextTry_, &time);
}

void AvahiAdvertiser::takeWanted() {
  {
    // Released before the calls below, which may wait for the daemon.
    const std::lock_guard lock(mutex_);
    if (!wantedChanged_) {
      return;
    }
    wantedChanged_ = false;
    service_ = wanted_;
  }
  group_.reset();
  collided_ = false;
  refusal_ = AVAHI_OK;
  pause_ = minRetryPause;
  if (service_) {
    name_ = networkName(service_->name);
  }
}

void AvahiAdvertiser::createClient() {
  clientState_ = AVAHI_CLIENT_CONNECTING;
  int error = 0;
  client_.reset(::avahi_client_new(::avahi_threaded_poll_get(poll_.get()), AVAHI_CLIENT_NO_FAIL,
                                   clientChanged, this, &error));
  if (!client_) {
    tryLater();
    if (!std::exchange(complained_, true)) {
      log::warning("Bonjour is not available: ", ::avahi_strerror(error));
    }
  }
}

void AvahiAdvertiser::registerService() {
  if (!isValidUtf8(service_->type) || !isValidUtf8(service_->domain)) {
    return;
  }
  group_.reset(::avahi_entry_group_new(client_.get(), groupChanged, this));
  int error = group_ ? AVAHI_ERR_COLLISION : ::avahi_client_errno(client_.get());
  // The daemon refuses names of this computer's other services at once; it reports names of other
  // computers later.
  for (int attempt = 0; error == AVAHI_ERR_COLLISION && attempt < 100; ++attempt) {
    if (attempt > 0) {
      takeNextName();
    }
    error = ::avahi_entry_group_add_service(
        group_.get(), AVAHI_IF_UNSPEC, AVAHI_PROTO_UNSPEC, AvahiPublishFlags{}, name_.c_str(),
        service_->type.c_str(), service_->domain.c_str(), nullptr, service_->port, nullptr);
  }
  if (error == AVAHI_OK) {
    error = ::avahi_entry_group_commit(group_.get());
  }
  if (error != AVAHI_OK) {
    group_.reset();
    tryLater();
    logRefusal(error);
  }
}

// Logs a failure once, however often the attempt is repeated.
void AvahiAdvertiser::logRefusal(int error) {
  if (std::exchange(refusal_, error) != error) {
    log::warning("Bonjour: cannot advertise \"", name_, "\": ", ::avahi_strerror(error));
  }
}

void AvahiAdvertiser::takeNextName() {
  collided_ = false;
  const std::unique_ptr<char, decltype(&::avahi_free)> next(
      ::avahi_alternative_service_name(name_.c_str()), &::avahi_free);
  if (next) {
    name_ = next.get();
  }
}

void AvahiAdvertiser::clientChanged(AvahiClient*, AvahiClientState state, void* self) {
  auto* advertiser = static_cast<AvahiAdvertiser*>(self);
  const bool isAway = state == AVAHI_CLIENT_CONNECTING || state == AVAHI_CLIENT_FAILURE;
  if (std::exchange(advertiser->complained_, isAway) != isAway && isAway) {
    log::info("Bonjour: Avahi does not run; phones do not find this computer by themselves");
  }
  if (state == AVAHI_CLIENT_S_RUNNING) {
    advertiser->pause_ = minRetryPause;
  }
  advertiser->clientState_ = state;
  advertiser->wake();
}

void AvahiAdvertiser::groupChanged(AvahiEntryGroup*, AvahiEntryGroupState state, void* self) {
  auto* advertiser = static_cast<AvahiAdvertiser*>(self);
  if (state == AVAHI_ENTRY_GROUP_COLLISION) {
    advertiser->collided_ = true;
    advertiser->wake();
  } else if (state == AVAHI_ENTRY_GROUP_ESTABLISHED) {
    advertiser->refusal_ = AVAHI_OK;
    log::info("Bonjour: advertised as \"", advertiser->name_, "\"");
  } else if (state == AVAHI_ENTRY_GROUP_FAILURE) {
    const int error = ::avahi_client_errno(advertiser->client_.get());
    advertiser->logRefusal(error == AVAHI_OK ? AVAHI_ERR_FAILURE : error);
    advertiser->failed_ = true;
    advertiser->tryLater();
  }
}

}  // namespace glintboard
