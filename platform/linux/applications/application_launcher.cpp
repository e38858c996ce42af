// SPDX-License-Identifier: MIT
#include "platform/linux/applications/application_launcher.h"

#include <gio/gdesktopappinfo.h>
#include <signal.h>

#include <QtGlobal>
#include <algorithm>

#include "platform/descriptor_limit.h"
#include "platform/linux/base/gio_call.h"
#include "platform/linux/base/key_file.h"
#include "platform/sound_settings.h"
#include "platform/user_error.h"

namespace glintboard {

namespace {

// "%1" in the pattern stands for the application's name, "%2" for the detail.
[[noreturn]] void fail(const DesktopEntry& entry, const char* pattern,
                       const std::string& detail = {}) {
  throw UserError(pattern, {entry.name, detail});
}

[[noreturn]] void failFor(const std::string& reason, const DesktopEntry& entry) {
  fail(entry, QT_TRANSLATE_NOOP("UserError", "%1 could not be started: %2"), reason);
}

std::string reasonOf(GError& error) {
  g_dbus_error_strip_remote_error(&error);
  return error.message;
}

// Runs in the new process, between fork and exec.
void leaveTheAgent(void* /*data*/) {
  ::setsid();
  restoreDescriptorLimit();
  for (int signal = 1; signal < NSIG; ++signal) {
    ::signal(signal, SIG_DFL);
  }
  sigset_t none;
  ::sigemptyset(&none);
  ::sigprocmask(SIG_SETMASK, &none, nullptr);
}

// GIO's form of a list of texts. The texts must outlive it.
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

bool isActivatable(const DesktopEntry& entry) {
  return entry.dbusActivatable && g_dbus_is_name(entry.id.c_str()) != 0;
}

// The path of the application's object on the bus.
std::string objectPath(const DesktopEntry& entry) {
  std::string object = "/" + entry.id;
  std::replace(object.begin(), object.end(), '.', '/');
  std::replace(object.begin(), object.end(), '-', '_');
  return object;
}

// Calls a method of the entry's org.freedesktop.Application, which the bus activates if necessary.
// Neither a reply nor an error is set at the deadline. Takes floating `arguments`.
GLibPointer<GVariant> callApplication(GioCalls& calls, GDBusConnection* bus,
                                      const DesktopEntry& entry, const char* method,
                                      GVariant* arguments, GLibPointer<GError>& error) {
  const auto result =
      calls.run([&](GCancellable* cancellable, GAsyncReadyCallback callback, void* data) {
        g_dbus_connection_call(bus, entry.id.c_str(), objectPath(entry).c_str(),
                               "org.freedesktop.Application", method, arguments, nullptr,
                               G_DBUS_CALL_FLAGS_NONE, -1, cancellable, callback, data);
      });
  return GLibPointer<GVariant>(
      result ? g_dbus_connection_call_finish(bus, result.get(), leftIn(error)) : nullptr);
}

std::optional<pid_t> startProgram(const DesktopEntry& entry, const LaunchToken& token,
                                  GDesktopAppInfo* application, GList* uris) {
  // Without a token, the program must not inherit the one that this process was started with.
  const GObjectPointer<GAppLaunchContext> context(g_app_launch_context_new());
  const std::string soundSettings = soundSettingsForPrograms().value_or("");
  for (const auto& [name, value] : {std::pair("DESKTOP_STARTUP_ID", &token.startupId),
                                    std::pair("XDG_ACTIVATION_TOKEN", &token.activationToken),
                                    std::pair(soundSettingsVariable, &soundSettings)}) {
    if (value->empty()) {
      g_app_launch_context_unsetenv(context.get(), name);
    } else {
      g_app_launch_context_setenv(context.get(), name, value->c_str());
    }
  }
  // Without G_SPAWN_DO_NOT_REAP_CHILD, the program is not a child of this process.
  // NOLINTNEXTLINE(clang-analyzer-optin.core.EnumCastOutOfRange): flags, declared as an enum.
  constexpr auto flags = static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_STDOUT_TO_DEV_NULL |
                                                  G_SPAWN_STDERR_TO_DEV_NULL);
  std::optional<pid_t> started;
  const auto keep = [](GDesktopAppInfo*, GPid pid, void* result) {
    *static_cast<std::optional<pid_t>*>(result) = pid;
  };
  GLibPointer<GError> error;
  g_desktop_app_info_launch_uris_as_manager(application, uris, context.get(), flags, leaveTheAgent,
                                            nullptr, keep, &started, leftIn(error));
  if (error) {
    failFor(reasonOf(*error), entry);
  }
  return started;
}

// The session bus; null without one. Starting a program makes GIO connect to the bus too, which
// never returns if the bus hangs: so a bus that does not answer is an error.
GObjectPointer<GDBusConnection> busFor(GioCalls& calls, const DesktopEntry& entry) {
  GLibPointer<GError> error;
  auto bus = connectToSessionBus(calls, error);
  if (error && g_error_matches(error.get(), G_IO_ERROR, G_IO_ERROR_CANCELLED)) {
    fail(entry, QT_TRANSLATE_NOOP("UserError",
                                  "%1 could not be started: the session bus does not answer"));
  }
  return bus;
}

// The platform data of an activation: the tokens.
GVariant* platformData(const LaunchToken& token) {
  GVariantBuilder data;
  g_variant_builder_init(&data, G_VARIANT_TYPE_VARDICT);
  for (const auto& [name, value] : {std::pair("desktop-startup-id", &token.startupId),
                                    std::pair("activation-token", &token.activationToken)}) {
    if (!value->empty()) {
      g_variant_builder_add(&data, "{sv}", name, g_variant_new_string(value->c_str()));
    }
  }
  return g_variant_builder_end(&data);
}

// Throws for an error other than a timeout: an application that answers late has received the call.
void require(const DesktopEntry& entry, GError* error) {
  if (error != nullptr && !g_error_matches(error, G_IO_ERROR, G_IO_ERROR_CANCELLED)) {
    failFor(reasonOf(*error), entry);
  }
}

void activateService(GioCalls& calls, GDBusConnection* bus, const DesktopEntry& entry,
                     const std::vector<std::string>& uris, const LaunchToken& token) {
  GLibPointer<GError> error;
  if (uris.empty()) {
    callApplication(calls, bus, entry, "Activate", g_variant_new("(@a{sv})", platformData(token)),
                    error);
  } else {
    GVariantBuilder list;
    g_variant_builder_init(&list, G_VARIANT_TYPE_STRING_ARRAY);
    for (const auto& uri : uris) {
      g_variant_builder_add(&list, "s", uri.c_str());
    }
    callApplication(calls, bus, entry, "Open",
                    g_variant_new("(as@a{sv})", &list, platformData(token)), error);
  }
  require(entry, error.get());
}

void activateAction(GioCalls& calls, GDBusConnection* bus, const DesktopEntry& entry,
                    const std::string& action) {
  GLibPointer<GError> error;
  callApplication(
      calls, bus, entry, "ActivateAction",
      g_variant_new("(s@av@a{sv})", action.c_str(), g_variant_new("av", nullptr), platformData({})),
      error);
  require(entry, error.get());
}

// An application that runs the action's program; null if the action has no program.
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
                                       const std::vector<std::string>& uris,
                                       const LaunchToken& token) {
  const GObjectPointer<GDesktopAppInfo> application(
      g_desktop_app_info_new_from_filename(entry.path.c_str()));
  if (!application) {
    if (!entry.command.empty() && findProgram(entry.command.front()).empty()) {
      fail(entry,
           QT_TRANSLATE_NOOP("UserError",
                             "%1 could not be started: the program \"%2\" is not installed"),
           entry.command.front());
    }
    fail(entry, QT_TRANSLATE_NOOP("UserError",
                                  "%1 could not be started: its desktop entry cannot be used"));
  }
  GioCalls calls(std::chrono::seconds(10));
  const auto bus = busFor(calls, entry);
  if (bus && isActivatable(entry)) {
    activateService(calls, bus.get(), entry, uris, token);
    return std::nullopt;
  }
  const TextList list(uris);
  return startProgram(entry, token, application.get(), list.get());
}

std::optional<pid_t> launchApplicationAction(const DesktopEntry& entry, const std::string& action) {
  GioCalls calls(std::chrono::seconds(10));
  const auto bus = busFor(calls, entry);
  if (bus && isActivatable(entry)) {
    activateAction(calls, bus.get(), entry, action);
    return std::nullopt;
  }
  const auto application = applicationForAction(entry, action);
  if (!application) {
    fail(entry,
         QT_TRANSLATE_NOOP(
             "UserError",
             "%1 could not be started: its action \"%2\" names no program that is installed"),
         action);
  }
  return startProgram(entry, {}, application.get(), nullptr);
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
  return callApplication(calls, bus.get(), entry, "Activate",
                         g_variant_new("(@a{sv})", platformData(token)), error) != nullptr;
}

}  // namespace glintboard
