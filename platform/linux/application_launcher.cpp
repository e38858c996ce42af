#include "platform/linux/application_launcher.h"

#include <gio/gdesktopappinfo.h>
#include <signal.h>

#include <algorithm>
#include <stdexcept>

#include "platform/linux/gio_call.h"
#include "platform/linux/key_file.h"

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

// GIO's form of a list of texts, which must outlive it.
class TextList {
 public:
  explicit TextList(const std::vector<std::string>& texts) {
    for (auto text = texts.rbegin(); text != texts.rend(); ++text) {
      list_ = g_list_prepend(list_, const_cast<char*>(text->c_str()));
    }
  }
  TextList(const TextList&) = delete;
  TextList& operator=(const TextList&) = delete;
  ~TextList() { g_list_free(list_); }
  GList* get() const { return list_; }

 private:
  GList* list_ = nullptr;
};

void activateService(GioCalls& calls, const DesktopEntry& entry, GAppInfo* application,
                     GList* uris) {
  const auto result =
      calls.run([&](GCancellable* cancellable, GAsyncReadyCallback callback, void* data) {
        g_app_info_launch_uris_async(application, uris, nullptr, cancellable, callback, data);
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

std::optional<pid_t> startProgram(const DesktopEntry& entry, GDesktopAppInfo* application,
                                  GList* uris) {
  // Without G_SPAWN_DO_NOT_REAP_CHILD, GLib makes the program no child of this process.
  // NOLINTNEXTLINE(clang-analyzer-optin.core.EnumCastOutOfRange): flags, declared as an enum.
  constexpr auto kFlags = static_cast<GSpawnFlags>(
      G_SPAWN_SEARCH_PATH | G_SPAWN_STDOUT_TO_DEV_NULL | G_SPAWN_STDERR_TO_DEV_NULL);
  std::optional<pid_t> started;
  const auto keep = [](GDesktopAppInfo*, GPid pid, void* place) {
    *static_cast<std::optional<pid_t>*>(place) = pid;
  };
  GLibPointer<GError> error;
  g_desktop_app_info_launch_uris_as_manager(application, uris, nullptr, kFlags, leaveTheAgent,
                                            nullptr, keep, &started, leftIn(error));
  if (error) {
    fail(entry, reasonOf(*error));
  }
  return started;
}

// The session bus, or null when there is none. GIO connects to it in any case, and would wait for
// ever for one that hangs.
GObjectPointer<GDBusConnection> busFor(GioCalls& calls, const DesktopEntry& entry) {
  GLibPointer<GError> error;
  auto bus = connectToSessionBus(calls, error);
  if (error && g_error_matches(error.get(), G_IO_ERROR, G_IO_ERROR_CANCELLED)) {
    fail(entry, "the session bus does not answer");
  }
  return bus;
}

// The object of an application's service on the bus.
std::string objectPath(const DesktopEntry& entry) {
  std::string object = "/" + entry.id;
  std::replace(object.begin(), object.end(), '.', '/');
  std::replace(object.begin(), object.end(), '-', '_');
  return object;
}

void activateAction(GioCalls& calls, GDBusConnection* bus, const DesktopEntry& entry,
                    const std::string& action) {
  const auto result =
      calls.run([&](GCancellable* cancellable, GAsyncReadyCallback callback, void* data) {
        g_dbus_connection_call(
            bus, entry.id.c_str(), objectPath(entry).c_str(), "org.freedesktop.Application",
            "ActivateAction",
            g_variant_new("(s@av@a{sv})", action.c_str(), g_variant_new("av", nullptr),
                          g_variant_new("a{sv}", nullptr)),
            nullptr, G_DBUS_CALL_FLAGS_NONE, -1, cancellable, callback, data);
      });
  GLibPointer<GError> error;
  const GLibPointer<GVariant> reply(
      result ? g_dbus_connection_call_finish(bus, result.get(), leftIn(error)) : nullptr);
  // An application that takes longer has been asked all the same.
  if (error && !g_error_matches(error.get(), G_IO_ERROR, G_IO_ERROR_CANCELLED)) {
    fail(entry, reasonOf(*error));
  }
}

// An application that does the action when it is started as a program, or null.
GObjectPointer<GDesktopAppInfo> applicationForAction(const DesktopEntry& entry,
                                                     const std::string& action) {
  const auto file = loadKeyFile(entry.path);
  if (!file) {
    return nullptr;
  }
  const std::string group = "Desktop Action " + action;
  const GLibPointer<char> exec(
      g_key_file_get_value(file.get(), group.c_str(), G_KEY_FILE_DESKTOP_KEY_EXEC, nullptr));
  if (!exec) {
    return nullptr;
  }
  g_key_file_set_value(file.get(), G_KEY_FILE_DESKTOP_GROUP, G_KEY_FILE_DESKTOP_KEY_EXEC,
                       exec.get());
  return GObjectPointer<GDesktopAppInfo>(g_desktop_app_info_new_from_keyfile(file.get()));
}

}  // namespace

std::optional<pid_t> launchApplication(const DesktopEntry& entry,
                                       const std::vector<std::string>& uris) {
  const GObjectPointer<GDesktopAppInfo> application(
      g_desktop_app_info_new_from_filename(entry.path.c_str()));
  if (!application) {
    if (!entry.command.empty() && findProgram(entry.command.front()).empty()) {
      fail(entry, "the program \"" + entry.command.front() + "\" is not installed");
    }
    fail(entry, "its desktop entry cannot be used");
  }
  GioCalls calls(std::chrono::seconds(10));
  const auto bus = busFor(calls, entry);
  const TextList list(uris);
  if (bus && entry.dbusActivatable) {
    activateService(calls, entry, G_APP_INFO(application.get()), list.get());
    return std::nullopt;
  }
  return startProgram(entry, application.get(), list.get());
}

std::optional<pid_t> launchApplicationAction(const DesktopEntry& entry, const std::string& action) {
  GioCalls calls(std::chrono::seconds(10));
  const auto bus = busFor(calls, entry);
  if (bus && entry.dbusActivatable && g_dbus_is_name(entry.id.c_str()) != 0) {
    activateAction(calls, bus.get(), entry, action);
    return std::nullopt;
  }
  const auto application = applicationForAction(entry, action);
  if (!application) {
    fail(entry, "its action \"" + action + "\" names no program that is installed");
  }
  return startProgram(entry, application.get(), nullptr);
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
  const auto result =
      calls.run([&](GCancellable* cancellable, GAsyncReadyCallback callback, void* data) {
        g_dbus_connection_call(bus.get(), entry.id.c_str(), objectPath(entry).c_str(),
                               "org.freedesktop.Application", "Activate",
                               g_variant_new("(@a{sv})", g_variant_new("a{sv}", nullptr)), nullptr,
                               G_DBUS_CALL_FLAGS_NONE, -1, cancellable, callback, data);
      });
  const GLibPointer<GVariant> reply(
      result ? g_dbus_connection_call_finish(bus.get(), result.get(), leftIn(error)) : nullptr);
  return reply != nullptr;
}

}  // namespace glintboard
