// SPDX-License-Identifier: MIT
#include "platform/compositing.h"

#include <xcb/xcb.h>

#include <QGuiApplication>
#include <string>

#include "platform/linux/base/c_pointer.h"

namespace glintboard {
namespace {

// A compositing manager owns this selection of the first screen, the only one of a desktop.
bool hasCompositingManager(xcb_connection_t* connection) {
  const std::string name = "_NET_WM_CM_S0";
  const CPointer<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
      connection,
      xcb_intern_atom(connection, 1, static_cast<std::uint16_t>(name.size()), name.data()),
      nullptr));
  if (!atom || atom->atom == XCB_ATOM_NONE) {
    return false;
  }
  const CPointer<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
      connection, xcb_get_selection_owner(connection, atom->atom), nullptr));
  return owner && owner->owner != XCB_WINDOW_NONE;
}

}  // namespace

bool compositesWindows() {
  if (const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>()) {
    return x11->connection() != nullptr && hasCompositingManager(x11->connection());
  }
  return true;
}

}  // namespace glintboard
