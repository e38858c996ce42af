#include "platform/linux/application_launcher.h"

#include <gio/gdesktopappinfo.h>
#include <signal.h>

#include <algorithm>
#include <stdexcept>

#include "platform/linux/gio_call.h"

namespace glintboard {

namespace {

[[noreturn]] void fail(const DesktopEntry& entry, const std::string& reason) {
  throw std::runtime_error(entry.name + " could not be started: " + reason);
}

std::string reasonOf(GError& error) {
  g_dbus_error_strip_remote_error(&error);
  return error.message;
}

bool isActivatable(const DesktopEntry& entry) {
  return entry.dbusActivatable && g_dbus_is_name(entry.id.c_str()) != 0;
}

// Runs in the new process, between fork and exec.
void leaveTheAgent(void* /*data*/) {
  ::setsid();
  for (int signal = 1; signal < NSIG; ++signal) {
    ::signal(signal, SIG_DFL);
  }
  sigset_t none;
  ::sigemptyset(&none);
  ::sigprocmask(SIG_SETMASK, &none, nullptr);
}

// Calls the entry's org.freedesktop.Application, which the bus starts if need be. None of reply and
// error is there when the deadline came first.
GLibPointer<GVariant> callActivate(GioCalls& calls, GDBusConnection* bus, const DesktopEntry& entry,
                                   const LaunchToken& token, GLibPointer<GError>& error) {
  std::string object = "/" + entry.id;
  std::replace(object.begin(), object.end(), '.', '/');
  std::replace(object.begin(), object.end(), '-', '_');
  GVariantBuilder platformData;
  g_variant_builder_init(&platformData, G_VARIANT_TYPE_VARDICT);
  for (const auto& [name, value] : {std::pair("desktop-startup-id", &token.startupId),
                                    std::pair("activation-token", &token.activationToken)}) {
    if (!value->empty()) {
      g_variant_builder_add(&platformData, "{sv}", name, g_variant_new_string(value->c_str()));
    }
  }
  GVariant* const arguments = g_variant_new("(@a{sv})", g_variant_builder_end(&platformData));
  const auto result =
      calls.run([&](GCancellable* cancellable, GAsyncReadyCallback callback, void* data) {
        g_dbus_connection_call(bus, entry.id.c_str(), object.c_str(), "org.freedesktop.Application",
                               "Activate", arguments, nullptr, G_DBUS_CALL_FLAGS_NONE, -1,
                               cancellable, callback, data);
      });
  return GLibPointer<GVariant>(
      result ? g_dbus_connection_call_finish(bus, result.get(), leftIn(error)) : nullptr);
}

std::optional<pid_t> startProgram(const DesktopEntry& entry, const LaunchToken& token,
                                  GDesktopAppInfo* application) {
  // Without tokens, the program must not get those that this one was started with.
  const GObjectPointer<GAppLaunchContext> context(g_app_launch_context_new());
  for (const auto& [name, value] : {std::pair("DESKTOP_STARTUP_ID", &token.startupId),
                                    std::pair("XDG_ACTIVATION_TOKEN", &token.activationToken)}) {
    if (value->empty()) {
      g_app_launch_context_unsetenv(context.get(), name);
    } else {
      g_app_launch_context_setenv(context.get(), name, value->c_str());
    }
  }
  // Without G_SPAWN_DO_NOT_REAP_CHILD, GLib makes the program no child of this process.
  // NOLINTNEXTLINE(clang-analyzer-optin.core.EnumCastOutOfRange): flags, declared as an enum.
  constexpr auto kFlags = static_cast<GSpawnFlags>(
      G_SPAWN_SEARCH_PATH | G_SPAWN_STDOUT_TO_DEV_NULL | G_SPAWN_STDERR_TO_DEV_NULL);
  std::optional<pid_t> started;
  const auto keep = [](GDesktopAppInfo*, GPid pid, void* place) {
    *static_cast<std::optional<pid_t>*>(place) = pid;
  };
  GLibPointer<GError> error;
  g_desktop_app_info_launch_uris_as_manager(application, nullptr, context.get(), kFlags,
                                            leaveTheAgent, nullptr, keep, &started, leftIn(error));
  if (error) {
    fail(entry, reasonOf(*error));
  }
  return started;
}

}  // namespace

std::optional<pid_t> launchApplication(const DesktopEntry& entry, const LaunchToken& token) {
  const GObjectPointer<GDesktopAppInfo> application(
      g_desktop_app_info_new_from_filename(entry.path.c_str()));
  if (!application) {
    if (!entry.command.empty() && findProgram(entry.command.front()).empty()) {
      fail(entry, "the program \"" + entry.command.front() + "\" is not installed");
    }
    fail(entry, "its desktop entry cannot be used");
  }
  GioCalls calls(std::chrono::seconds(10));
  GLibPointer<GError> error;
  // GIO connects to the bus in any case, and would wait for ever for one that hangs.
  const auto bus = connectToSessionBus(calls, error);
  if (error && g_error_matches(error.get(), G_IO_ERROR, G_IO_ERROR_CANCELLED)) {
    fail(entry, "the session bus does not answer");
  }
  if (bus && isActivatable(entry)) {
    callActivate(calls, bus.get(), entry, token, error);
    // An application that takes longer has been asked all the same.
    if (error && !g_error_matches(error.get(), G_IO_ERROR, G_IO_ERROR_CANCELLED)) {
      fail(entry, reasonOf(*error));
    }
    return std::nullopt;
  }
  return startProgram(entry, token, application.get());
}

bool activateOverDBus(const DesktopEntry& entry, const LaunchToken& token,
                      std::chrono::milliseconds deadline) {
  if (!isActivatable(entry)) {
    return false;
  }
  GioCalls calls(deadline);
  GLibPointer<GError> error;
  const auto bus = connectToSessionBus(calls, error);
  if (!bus) {
    return false;
  }
  return callActivate(calls, bus.get(), entry, token, error) != nullptr;
}

}  // namespace glintboard
