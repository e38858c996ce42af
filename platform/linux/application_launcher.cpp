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

void activateService(GioCalls& calls, const DesktopEntry& entry, GAppInfo* application) {
  const auto result =
      calls.run([application](GCancellable* cancellable, GAsyncReadyCallback callback, void* data) {
        g_app_info_launch_uris_async(application, nullptr, nullptr, cancellable, callback, data);
      });
  GLibPointer<GError> error;
  if (result) {
    g_app_info_launch_uris_finish(application, result.get(), leftIn(error));
  }
  // An application that takes longer has been asked all the same.
  if (error && !g_error_matches(error.get(), G_IO_ERROR, G_IO_ERROR_CANCELLED)) {
    fail(entry, reasonOf(*error));
  }
}

std::optional<pid_t> startProgram(const DesktopEntry& entry, GDesktopAppInfo* application) {
  // Without G_SPAWN_DO_NOT_REAP_CHILD, GLib makes the program no child of this process.
  // NOLINTNEXTLINE(clang-analyzer-optin.core.EnumCastOutOfRange): flags, declared as an enum.
  constexpr auto kFlags = static_cast<GSpawnFlags>(
      G_SPAWN_SEARCH_PATH | G_SPAWN_STDOUT_TO_DEV_NULL | G_SPAWN_STDERR_TO_DEV_NULL);
  std::optional<pid_t> started;
  const auto keep = [](GDesktopAppInfo*, GPid pid, void* place) {
    *static_cast<std::optional<pid_t>*>(place) = pid;
  };
  GLibPointer<GError> error;
  g_desktop_app_info_launch_uris_as_manager(application, nullptr, nullptr, kFlags, leaveTheAgent,
                                            nullptr, keep, &started, leftIn(error));
  if (error) {
    fail(entry, reasonOf(*error));
  }
  return started;
}

}  // namespace

std::optional<pid_t> launchApplication(const DesktopEntry& entry) {
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
  if (bus && entry.dbusActivatable) {
    activateService(calls, entry, G_APP_INFO(application.get()));
    return std::nullopt;
  }
  return startProgram(entry, application.get());
}

bool activateOverDBus(const DesktopEntry& entry, std::chrono::milliseconds deadline) {
  if (!entry.dbusActivatable || g_dbus_is_name(entry.id.c_str()) == 0) {
    return false;
  }
  GioCalls calls(deadline);
  GLibPointer<GError> error;
  const auto bus = connectToSessionBus(calls, error);
  if (!bus) {
    return false;
  }
  std::string object = "/" + entry.id;
  std::replace(object.begin(), object.end(), '.', '/');
  std::replace(object.begin(), object.end(), '-', '_');
  const auto result =
      calls.run([&](GCancellable* cancellable, GAsyncReadyCallback callback, void* data) {
        g_dbus_connection_call(bus.get(), entry.id.c_str(), object.c_str(),
                               "org.freedesktop.Application", "Activate",
                               g_variant_new("(@a{sv})", g_variant_new("a{sv}", nullptr)), nullptr,
                               G_DBUS_CALL_FLAGS_NONE, -1, cancellable, callback, data);
      });
  const GLibPointer<GVariant> reply(
      result ? g_dbus_connection_call_finish(bus.get(), result.get(), leftIn(error)) : nullptr);
  return reply != nullptr;
}

}  // namespace glintboard
