// SPDX-License-Identifier: MIT
// Ownership of GLib's objects, strings and errors.
#pragma once

#include <gio/gio.h>

#include <memory>

namespace glintboard {

namespace detail {
struct GLibRelease {
  void operator()(GError* error) const { g_error_free(error); }
  void operator()(GKeyFile* file) const { g_key_file_unref(file); }
  void operator()(GMainContext* context) const { g_main_context_unref(context); }
  void operator()(GMainLoop* loop) const { g_main_loop_unref(loop); }
  void operator()(GDBusNodeInfo* info) const { g_dbus_node_info_unref(info); }
  void operator()(GSettingsSchema* schema) const { g_settings_schema_unref(schema); }
  void operator()(GSettingsSchemaKey* key) const { g_settings_schema_key_unref(key); }
  void operator()(GSource* source) const {
    g_source_destroy(source);
    g_source_unref(source);
  }
  void operator()(GVariant* variant) const { g_variant_unref(variant); }
  void operator()(char* text) const { g_free(text); }
  void operator()(char** texts) const { g_strfreev(texts); }
};
struct GObjectRelease {
  void operator()(void* object) const { g_object_unref(object); }
};
}  // namespace detail

// Owns a GLib value that is not a GObject: GKeyFile, GVariant, char, char* (a list of texts), …
// Releasing a GSource also removes it from its main context.
template <class T>
using GLibPointer = std::unique_ptr<T, detail::GLibRelease>;

// Owns one reference to an object.
template <class T>
using GObjectPointer = std::unique_ptr<T, detail::GObjectRelease>;

// Takes the ownership of the result that a GLib function stores in an output argument:
// `f(leftIn(error))`.
template <class Owner>
class LeftIn {
 public:
  explicit LeftIn(Owner& owner) : owner_(owner) {}
  LeftIn(const LeftIn&) = delete;
  LeftIn& operator=(const LeftIn&) = delete;
  ~LeftIn() { owner_.reset(left_); }
  // NOLINTNEXTLINE(google-explicit-constructor): stands for the argument itself.
  operator typename Owner::pointer *() { return &left_; }

 private:
  Owner& owner_;
  typename Owner::pointer left_ = nullptr;
};

// `owner` gets the result at the end of the full expression.
template <class Owner>
LeftIn<Owner> leftIn(Owner& owner) {
  return LeftIn<Owner>(owner);
}

}  // namespace glintboard
