// SPDX-License-Identifier: MIT
// A connection to an X server.
#pragma once

#include <xcb/xcb.h>

#include <memory>
#include <string>
#include <string_view>

#include "platform/asio.h"
#include "platform/file_descriptor.h"

namespace glintboard {

// The atoms in use, with the server's numbers.
struct X11Atoms {
  xcb_atom_t activeWindow = 0;
  xcb_atom_t clientList = 0;
  xcb_atom_t clientListStacking = 0;
  xcb_atom_t processId = 0;
  xcb_atom_t windowType = 0;
  xcb_atom_t windowTypeDesktop = 0;
  xcb_atom_t windowTypeDock = 0;
  xcb_atom_t restackWindow = 0;
  xcb_atom_t currentDesktop = 0;
  xcb_atom_t desktopOfWindow = 0;
  xcb_atom_t supportingWmCheck = 0;
  xcb_atom_t gtkApplicationId = 0;
  xcb_atom_t time = 0;
};

// An open connection. For the service loop.
class X11Connection {
 public:
  // Connects to a display of this computer (":0"). Null when no server answers within two seconds.
  // Blocking calls are made on `workers`.
  static Awaitable<std::unique_ptr<X11Connection>> open(asio::any_io_executor workers,
                                                        std::string display);
  ~X11Connection();
  X11Connection(const X11Connection&) = delete;
  X11Connection& operator=(const X11Connection&) = delete;

  // The connection, which this object owns; never null.
  xcb_connection_t* get() const { return connection_; }
  // The root window of the display's screen.
  xcb_window_t root() const { return root_; }
  // A hidden window of this connection, whose property changes are reported.
  xcb_window_t window() const { return window_; }
  const X11Atoms& atoms() const { return atoms_; }

 private:
  // Both block until the server answers or the connection ends.
  X11Connection(FileDescriptor socket, int display);
  // Reads what the members below need. False when the connection has failed.
  bool prepare(int screen);

  xcb_connection_t* connection_;
  xcb_window_t root_ = 0;
  xcb_window_t window_ = 0;
  X11Atoms atoms_;
};

}  // namespace glintboard
