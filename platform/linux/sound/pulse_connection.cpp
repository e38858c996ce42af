// SPDX-License-Identifier: MIT
#include "platform/linux/sound/pulse_connection.h"

#include <pulse/def.h>
#include <pulse/error.h>

#include "platform/audio_output.h"

namespace glintboard {
namespace {

constexpr auto serverTimeout = std::chrono::seconds(2);

struct ReleaseOperation {
  void operator()(pa_operation* operation) const {
    ::pa_operation_cancel(operation);
    ::pa_operation_unref(operation);
  }
};

}  // namespace

void PulseConnection::Release::operator()(pa_context* context) const {
  ::pa_context_disconnect(context);
  ::pa_context_unref(context);
}

PulseConnection::PulseConnection()
    : deadline_(std::chrono::steady_clock::now() + serverTimeout), loop_(::pa_mainloop_new()) {
  if (!loop_) {
    throw AudioError(PA_ERR_INTERNAL);
  }
  context_.reset(::pa_context_new(::pa_mainloop_get_api(loop_.get()), "Glintboard Agent"));
  if (!context_) {
    throw AudioError(PA_ERR_INTERNAL);
  }
  if (::pa_context_connect(context_.get(), nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0) {
    fail();
  }
  for (;;) {
    const pa_context_state_t state = ::pa_context_get_state(context_.get());
    if (state == PA_CONTEXT_READY) {
      return;
    }
    if (!PA_CONTEXT_IS_GOOD(state)) {
      fail();
    }
    iterate();
  }
}

void PulseConnection::finish(pa_operation* started) {
  const std::unique_ptr<pa_operation, ReleaseOperation> operation(started);
  if (!operation) {
    fail();
  }
  for (;;) {
    switch (::pa_operation_get_state(operation.get())) {
      case PA_OPERATION_DONE:
        return;
      case PA_OPERATION_CANCELLED:
        fail();
      case PA_OPERATION_RUNNING:
        iterate();
    }
  }
}

void PulseConnection::fail() {
  const int code = ::pa_context_errno(context_.get());
  throw AudioError(code == PA_OK ? PA_ERR_UNKNOWN : code);
}

void PulseConnection::iterate() {
  const auto left = std::chrono::duration_cast<std::chrono::microseconds>(
      deadline_ - std::chrono::steady_clock::now());
  if (left.count() <= 0) {
    throw AudioError(PA_ERR_TIMEOUT);
  }
  if (::pa_mainloop_prepare(loop_.get(), static_cast<int>(left.count())) < 0 ||
      ::pa_mainloop_poll(loop_.get()) < 0 || ::pa_mainloop_dispatch(loop_.get()) < 0) {
    throw AudioError(PA_ERR_INTERNAL);
  }
}

}  // namespace glintboard
