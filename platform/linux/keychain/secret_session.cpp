// SPDX-License-Identifier: MIT
#include "platform/linux/keychain/secret_session.h"

#include <memory>

#include "platform/linux/keychain/secret_service_names.h"

namespace glintboard {
namespace {

constexpr const char* label = "Glintboard Agent paired devices";

// Items are found by their attributes alone, whoever wrote them.
const SecretSchema& schema() {
  static const SecretSchema schema = [] {
    SecretSchema made{};
    made.name = "org.glintboard.Agent.GenericPassword";
    made.flags = SECRET_SCHEMA_DONT_MATCH_NAME;
    made.attributes[0] = {"class", SECRET_SCHEMA_ATTRIBUTE_STRING};
    made.attributes[1] = {"service", SECRET_SCHEMA_ATTRIBUTE_STRING};
    made.attributes[2] = {"account", SECRET_SCHEMA_ATTRIBUTE_STRING};
    return made;
  }();
  return schema;
}

struct Release {
  void operator()(GHashTable* table) const { g_hash_table_unref(table); }
  void operator()(SecretValue* value) const { secret_value_unref(value); }
};
using Attributes = std::unique_ptr<GHashTable, Release>;
using Value = std::unique_ptr<SecretValue, Release>;

Attributes attributesOf(const KeychainQuery& query) {
  return Attributes(secret_attributes_build(&schema(), "class", "generic-password", "service",
                                            query.service.c_str(), "account", query.account.c_str(),
                                            nullptr));
}

Value valueOf(const std::string& data) {
  return Value(
      secret_value_new(data.data(), static_cast<gssize>(data.size()), "text/plain; charset=utf8"));
}

KeychainStatus statusOf(const GError& error) {
  if (error.domain == SECRET_ERROR) {
    switch (error.code) {
      case SECRET_ERROR_IS_LOCKED:
        return keychainInteractionNotAllowed;
      case SECRET_ERROR_NO_SUCH_OBJECT:
        return keychainItemNotFound;
      case SECRET_ERROR_ALREADY_EXISTS:
        return keychainDuplicateItem;
      default:
        return keychainFailed;
    }
  }
  if (g_error_matches(&error, G_IO_ERROR, G_IO_ERROR_CANCELLED) ||
      g_error_matches(&error, G_IO_ERROR, G_IO_ERROR_TIMED_OUT)) {
    return keychainTimedOut;
  }
  // What the service itself answers is a failure of it; all else means that nothing answers.
  const bool isAnswer =
      error.domain == G_DBUS_ERROR && error.code != G_DBUS_ERROR_SERVICE_UNKNOWN &&
      error.code != G_DBUS_ERROR_NAME_HAS_NO_OWNER && error.code != G_DBUS_ERROR_NO_REPLY &&
      error.code != G_DBUS_ERROR_DISCONNECTED &&
      (error.code < G_DBUS_ERROR_SPAWN_EXEC_FAILED || error.code > G_DBUS_ERROR_SPAWN_NO_MEMORY);
  return isAnswer ? keychainFailed : keychainNotAvailable;
}

}  // namespace

// Makes one call, whose result `finish` takes out.
template <class Finish>
auto SecretSession::call(const GioCalls::Start& start, Finish finish) {
  const auto result = calls_.run(start);
  if (!result) {
    throw SecretRefusal{keychainTimedOut};
  }
  GLibPointer<GError> error;
  auto value = finish(result.get(), leftIn(error));
  if (error) {
    throw SecretRefusal{statusOf(*error)};
  }
  return value;
}

SecretSession::SecretSession(std::chrono::milliseconds deadline) : calls_(deadline) {
  GLibPointer<GError> error;
  bus_ = connectToSessionBus(calls_, error);
  if (!bus_) {
    throw SecretRefusal{statusOf(*error)};
  }
  // Not the shared service object of this process: that one keeps its state between calls.
  service_.reset(call(
      [](GCancellable* cancellable, GAsyncReadyCallback callback, void* data) {
        secret_service_open(SECRET_TYPE_SERVICE, SecretServiceNames::bus,
                            SECRET_SERVICE_OPEN_SESSION, cancellable, callback, data);
      },
      [](GAsyncResult* result, GError** failure) {
        return secret_service_open_finish(result, failure);
      }));
}

std::vector<GObjectPointer<SecretItem>> SecretSession::search(const KeychainQuery& query) {
  const auto attributes = attributesOf(query);
  GList* const found = call(
      [&](GCancellable* cancellable, GAsyncReadyCallback callback, void* data) {
        secret_service_search(service_.get(), &schema(), attributes.get(), SECRET_SEARCH_ALL,
                              cancellable, callback, data);
      },
      [this](GAsyncResult* result, GError** error) {
        return secret_service_search_finish(service_.get(), result, error);
      });
  std::vector<GObjectPointer<SecretItem>> items;
  for (GList* link = found; link != nullptr; link = link->next) {
    items.emplace_back(SECRET_ITEM(link->data));
  }
  g_list_free(found);
  return items;
}

GObjectPointer<SecretCollection> SecretSession::defaultCollection() {
  return GObjectPointer<SecretCollection>(call(
      [this](GCancellable* cancellable, GAsyncReadyCallback callback, void* data) {
        secret_collection_for_alias(service_.get(), SECRET_COLLECTION_DEFAULT,
                                    SECRET_COLLECTION_NONE, cancellable, callback, data);
      },
      [](GAsyncResult* result, GError** error) {
        return secret_collection_for_alias_finish(result, error);
      }));
}

std::string SecretSession::secret(SecretItem* item) {
  call([item](GCancellable* cancellable, GAsyncReadyCallback callback,
              void* data) { secret_item_load_secret(item, cancellable, callback, data); },
       [item](GAsyncResult* result, GError** error) {
         return secret_item_load_secret_finish(item, result, error);
       });
  const Value value(secret_item_get_secret(item));
  if (!value) {
    throw SecretRefusal{keychainFailed};
  }
  gsize size = 0;
  const char* const bytes = secret_value_get(value.get(), &size);
  return {bytes, size};
}

void SecretSession::setSecret(SecretItem* item, const std::string& data) {
  const Value value = valueOf(data);
  call(
      [&](GCancellable* cancellable, GAsyncReadyCallback callback, void* userData) {
        secret_item_set_secret(item, value.get(), cancellable, callback, userData);
      },
      [item](GAsyncResult* result, GError** error) {
        return secret_item_set_secret_finish(item, result, error);
      });
}

void SecretSession::create(SecretCollection* collection, const KeychainQuery& query,
                           const std::string& data) {
  const auto attributes = attributesOf(query);
  const Value value = valueOf(data);
  const GObjectPointer<SecretItem> created(call(
      [&](GCancellable* cancellable, GAsyncReadyCallback callback, void* userData) {
        secret_item_create(collection, &schema(), attributes.get(), label, value.get(),
                           SECRET_ITEM_CREATE_NONE, cancellable, callback, userData);
      },
      [](GAsyncResult* result, GError** error) {
        return secret_item_create_finish(result, error);
      }));
}

void SecretSession::remove(SecretItem* item) {
  call([item](GCancellable* cancellable, GAsyncReadyCallback callback,
              void* data) { secret_item_delete(item, cancellable, callback, data); },
       [item](GAsyncResult* result, GError** error) {
         return secret_item_delete_finish(item, result, error);
       });
}

bool SecretSession::unlock(const std::string& path) {
  const char* const paths[] = {path.c_str()};
  const auto reply = callBus(SecretServiceNames::path, SecretServiceNames::interface, "Unlock",
                             g_variant_new("(@ao)", g_variant_new_objv(paths, 1)), "(aoo)");
  const char* prompt = nullptr;
  g_variant_get_child(reply.get(), 1, "&o", &prompt);
  if (std::string_view(prompt) == "/") {
    return true;
  }
  callBus(prompt, "org.freedesktop.Secret.Prompt", "Prompt", g_variant_new("(s)", ""), "()");
  return false;
}

GLibPointer<GVariant> SecretSession::callBus(const char* path, const char* interface,
                                             const char* method, GVariant* arguments,
                                             const char* reply) {
  return GLibPointer<GVariant>(call(
      [&](GCancellable* cancellable, GAsyncReadyCallback callback, void* data) {
        g_dbus_connection_call(bus_.get(), SecretServiceNames::bus, path, interface, method,
                               arguments, G_VARIANT_TYPE(reply), G_DBUS_CALL_FLAGS_NONE, -1,
                               cancellable, callback, data);
      },
      [this](GAsyncResult* result, GError** error) {
        return g_dbus_connection_call_finish(bus_.get(), result, error);
      }));
}

}  // namespace glintboard
