// SPDX-License-Identifier: MIT
#include "platform/linux/desktop/status_notifier_item.h"

#include <unistd.h>

#include <QtEndian>
#include <utility>

#include "platform/log.h"

namespace glintboard {
namespace {

constexpr const char* itemInterface = "org.kde.StatusNotifierItem";
constexpr const char* itemPath = "/StatusNotifierItem";
constexpr const char* watcherName = "org.kde.StatusNotifierWatcher";
constexpr const char* watcherPath = "/StatusNotifierWatcher";
constexpr guint watcherTimeout = 2000;  // milliseconds

constexpr const char* description = R"xml(<node><interface name="org.kde.StatusNotifierItem">
  <property name="Category" type="s" access="read"/>
  <property name="Id" type="s" access="read"/>
  <property name="Title" type="s" access="read"/>
  <property name="Status" type="s" access="read"/>
  <property name="WindowId" type="i" access="read"/>
  <property name="IconThemePath" type="s" access="read"/>
  <property name="IconName" type="s" access="read"/>
  <property name="IconPixmap" type="a(iiay)" access="read"/>
  <property name="OverlayIconName" type="s" access="read"/>
  <property name="AttentionIconName" type="s" access="read"/>
  <property name="ToolTip" type="(sa(iiay)ss)" access="read"/>
  <property name="ItemIsMenu" type="b" access="read"/>
  <property name="Menu" type="o" access="read"/>
  <method name="Activate"><arg type="i" direction="in"/><arg type="i" direction="in"/></method>
  <method name="SecondaryActivate">
    <arg type="i" direction="in"/><arg type="i" direction="in"/></method>
  <method name="ContextMenu"><arg type="i" direction="in"/><arg type="i" direction="in"/></method>
  <method name="Scroll"><arg type="i" direction="in"/><arg type="s" direction="in"/></method>
  <method name="ProvideXdgActivationToken"><arg type="s" direction="in"/></method>
  <signal name="NewTitle"/>
  <signal name="NewIcon"/>
  <signal name="NewToolTip"/>
  <signal name="NewStatus"><arg type="s"/></signal>
</interface></node>)xml";

GVariant* pixmaps(const std::vector<QImage>& images) {
  GVariantBuilder builder;
  g_variant_builder_init(&builder, G_VARIANT_TYPE("a(iiay)"));
  for (const QImage& image : images) {
    // The protocol uses network byte order.
    const QImage pixels = image.convertToFormat(QImage::Format_ARGB32);
    std::vector<quint32> bytes;
    for (int y = 0; y < pixels.height(); ++y) {
      const auto* line = reinterpret_cast<const QRgb*>(pixels.constScanLine(y));
      for (int x = 0; x < pixels.width(); ++x) {
        bytes.push_back(qToBigEndian<quint32>(line[x]));
      }
    }
    g_variant_builder_add(&builder, "(ii@ay)", pixels.width(), pixels.height(),
                          g_variant_new_fixed_array(G_VARIANT_TYPE_BYTE, bytes.data(),
                                                    bytes.size() * sizeof bytes[0], 1));
  }
  return g_variant_builder_end(&builder);
}

}  // namespace

struct StatusNotifierItem::OnBus {
  static StatusNotifierItem& item(void* self) { return *static_cast<StatusNotifierItem*>(self); }

  static void called(GDBusConnection*, const char*, const char*, const char*, const char*,
                     GVariant* arguments, GDBusMethodInvocation* invocation, void* self) {
    // Scroll has arguments of other types and is ignored.
    if (g_variant_is_of_type(arguments, G_VARIANT_TYPE("(s)")) != 0) {
      const char* token = nullptr;
      g_variant_get(arguments, "(&s)", &token);
      item(self).token_ = token;
    } else if (g_variant_is_of_type(arguments, G_VARIANT_TYPE("(ii)")) != 0) {
      TrayActivation activation;
      g_variant_get(arguments, "(ii)", &activation.x, &activation.y);
      activation.token = std::exchange(item(self).token_, {});
      item(self).activated_(activation);
    }
    g_dbus_method_invocation_return_value(invocation, nullptr);
  }

  static GVariant* asked(GDBusConnection*, const char*, const char*, const char*, const char* name,
                         GError**, void* self) {
    return item(self).property(name);
  }

  static void watcherCame(GDBusConnection*, const char*, const char* owner, void* self) {
    item(self).registerWith(owner);
  }

  static void watcherWent(GDBusConnection*, const char*, void* self) { item(self).setShown(false); }

  static void watcherAnswered(GObject* bus, GAsyncResult* result, void* self) {
    GLibPointer<GError> error;
    const GLibPointer<GVariant> reply(
        g_dbus_connection_call_finish(G_DBUS_CONNECTION(bus), result, leftIn(error)));
    // After a cancellation `self` may have been destroyed.
    if (!error || g_error_matches(error.get(), G_IO_ERROR, G_IO_ERROR_CANCELLED) == 0) {
      item(self).registered(reply != nullptr);
    }
  }

  static void hostAnswered(GObject* bus, GAsyncResult* result, void* self) {
    GLibPointer<GError> error;
    const GLibPointer<GVariant> reply(
        g_dbus_connection_call_finish(G_DBUS_CONNECTION(bus), result, leftIn(error)));
    if (error && g_error_matches(error.get(), G_IO_ERROR, G_IO_ERROR_CANCELLED) != 0) {
      return;
    }
    GLibPointer<GVariant> value;
    if (reply) {
      g_variant_get(reply.get(), "(v)", static_cast<GVariant**>(leftIn(value)));
    }
    // A watcher without the property counts as having a host.
    const bool none = value && g_variant_is_of_type(value.get(), G_VARIANT_TYPE_BOOLEAN) != 0 &&
                      g_variant_get_boolean(value.get()) == 0;
    item(self).setShown(!none);
  }

  static void hostChanged(GDBusConnection*, const char*, const char*, const char*, const char*,
                          GVariant*, void* self) {
    item(self).askForHost();
  }

  static constexpr GDBusInterfaceVTable table{called, asked, nullptr, {}};
};

StatusNotifierItem::StatusNotifierItem(TrayLook look, TrayActivated activated,
                                       std::function<void(bool shown)> shownChanged)
    : look_(std::move(look)),
      activated_(std::move(activated)),
      shownChanged_(std::move(shownChanged)),
      description_(g_dbus_node_info_new_for_xml(description, nullptr)),
      name_(
          std::string(itemInterface).append("-").append(std::to_string(::getpid())).append("-1")) {}

StatusNotifierItem::~StatusNotifierItem() = default;

void StatusNotifierItem::setToolTip(std::string text) {
  if (text != toolTip_) {
    toolTip_ = std::move(text);
    emit("NewToolTip");
  }
}

void StatusNotifierItem::connected(GDBusConnection* bus) {
  bus_ = bus;
  cancellable_.reset(g_cancellable_new());
  object_ = g_dbus_connection_register_object(bus_, itemPath, description_->interfaces[0],
                                              &OnBus::table, this, nullptr, nullptr);
  ownedName_ = g_bus_own_name_on_connection(bus_, name_.c_str(), G_BUS_NAME_OWNER_FLAGS_NONE,
                                            nullptr, nullptr, nullptr, nullptr);
  watcher_ = g_bus_watch_name_on_connection(bus_, watcherName, G_BUS_NAME_WATCHER_FLAGS_NONE,
                                            OnBus::watcherCame, OnBus::watcherWent, this, nullptr);
  hostSignal_ = g_dbus_connection_signal_subscribe(bus_, watcherName, watcherName, nullptr,
                                                   watcherPath, nullptr, G_DBUS_SIGNAL_FLAGS_NONE,
                                                   OnBus::hostChanged, this, nullptr);
}

void StatusNotifierItem::disconnected() {
  if (bus_ != nullptr) {
    g_cancellable_cancel(cancellable_.get());
    timeout_.reset();
    g_bus_unwatch_name(watcher_);
    g_bus_unown_name(ownedName_);
    g_dbus_connection_signal_unsubscribe(bus_, hostSignal_);
    g_dbus_connection_unregister_object(bus_, object_);
    bus_ = nullptr;
  }
  setShown(false);
}

void StatusNotifierItem::registerWith(const char* watcher) {
  g_dbus_connection_call(bus_, watcher, watcherPath, watcherName, "RegisterStatusNotifierItem",
                         g_variant_new("(s)", name_.c_str()), nullptr, G_DBUS_CALL_FLAGS_NONE,
                         G_MAXINT, cancellable_.get(), OnBus::watcherAnswered, this);
  // If a busy desktop answers late, the item is shown late, and in the other tray until then.
  timeout_.reset(g_timeout_source_new(watcherTimeout));
  const auto elapsed = [](void* self) -> int {
    static_cast<StatusNotifierItem*>(self)->notShownYet();
    return G_SOURCE_REMOVE;
  };
  g_source_set_callback(timeout_.get(), elapsed, this, nullptr);
  g_source_attach(timeout_.get(), g_main_context_get_thread_default());
}

void StatusNotifierItem::notShownYet() {
  log::info("the tray does not answer");
  setShown(false);
}

void StatusNotifierItem::registered(bool accepted) {
  timeout_.reset();
  if (!accepted) {
    log::warning("the tray has refused the item");
    setShown(false);
    return;
  }
  askForHost();
}

// Only a watcher with a host shows items.
void StatusNotifierItem::askForHost() {
  g_dbus_connection_call(bus_, watcherName, watcherPath, "org.freedesktop.DBus.Properties", "Get",
                         g_variant_new("(ss)", watcherName, "IsStatusNotifierHostRegistered"),
                         G_VARIANT_TYPE("(v)"), G_DBUS_CALL_FLAGS_NO_AUTO_START,
                         static_cast<int>(watcherTimeout), cancellable_.get(), OnBus::hostAnswered,
                         this);
}

void StatusNotifierItem::setShown(bool shown) {
  if (shown_ != shown) {
    shown_ = shown;
    shownChanged_(shown);
  }
}

void StatusNotifierItem::emit(const char* signal) const {
  if (bus_ != nullptr) {
    g_dbus_connection_emit_signal(bus_, nullptr, itemPath, itemInterface, signal, nullptr, nullptr);
  }
}

GVariant* StatusNotifierItem::property(std::string_view name) const {
  const auto text = [](const std::string& value) { return g_variant_new_string(value.c_str()); };
  if (name == "Category") {
    return text("ApplicationStatus");
  }
  if (name == "Id") {
    return text("org.glintboard.Agent");
  }
  if (name == "Title") {
    return text(look_.title);
  }
  if (name == "Status") {
    return text("Active");
  }
  if (name == "WindowId") {
    return g_variant_new_int32(0);
  }
  if (name == "IconName") {
    return text(look_.iconName);
  }
  if (name == "IconPixmap") {
    return pixmaps(look_.pixmaps);
  }
  if (name == "ToolTip") {
    return g_variant_new("(s@a(iiay)ss)", "", pixmaps({}), look_.title.c_str(), toolTip_.c_str());
  }
  if (name == "ItemIsMenu") {
    return g_variant_new_boolean(FALSE);
  }
  if (name == "Menu") {
    // Hosts recognise this path as "no menu" and call ContextMenu.
    return g_variant_new_object_path("/NO_DBUSMENU");
  }
  return text("");
}

}  // namespace glintboard
