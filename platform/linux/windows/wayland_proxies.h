// SPDX-License-Identifier: MIT
// Ownership of Wayland's objects.
#pragma once

#include <wayland-client.h>

#include <memory>

#include "wlr-foreign-toplevel-management-unstable-v1-client-protocol.h"
#include "xdg-activation-v1-client-protocol.h"

namespace glintboard {

namespace detail {
// Destroys an object with the function for its type.
struct WaylandRelease {
  void operator()(wl_display* display) const { wl_display_disconnect(display); }
  void operator()(wl_registry* registry) const { wl_registry_destroy(registry); }
  void operator()(wl_callback* callback) const { wl_callback_destroy(callback); }
  void operator()(wl_seat* seat) const { wl_seat_destroy(seat); }
  void operator()(zwlr_foreign_toplevel_manager_v1* manager) const {
    zwlr_foreign_toplevel_manager_v1_destroy(manager);
  }
  void operator()(zwlr_foreign_toplevel_handle_v1* toplevel) const {
    zwlr_foreign_toplevel_handle_v1_destroy(toplevel);
  }
  void operator()(xdg_activation_v1* activation) const { xdg_activation_v1_destroy(activation); }
  void operator()(xdg_activation_token_v1* token) const { xdg_activation_token_v1_destroy(token); }
};
}  // namespace detail

// Owns an object. Release all objects before their wl_display.
template <class T>
using WaylandPointer = std::unique_ptr<T, detail::WaylandRelease>;

}  // namespace glintboard
