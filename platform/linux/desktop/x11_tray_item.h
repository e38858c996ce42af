// SPDX-License-Identifier: MIT
// The agent's item in a tray with the XEmbed protocol.
#pragma once

#include <xcb/xcb.h>

#include <functional>
#include <memory>

#include "platform/linux/base/glib_pointers.h"
#include "platform/tray.h"

namespace glintboard {

// Shows the item in the tray of the X display that the environment names, also in one that starts
// later. For one thread with a running main context of its own. Waits for the X server.
class X11TrayItem {
 public:
  X11TrayItem(TrayLook look, TrayActivated activated);
  // `activated` is not called afterwards.
  ~X11TrayItem();
  X11TrayItem(const X11TrayItem&) = delete;
  X11TrayItem& operator=(const X11TrayItem&) = delete;

  // Whether a tray has the item's window.
  bool isShown() const { return window_ != XCB_WINDOW_NONE; }

 private:
  struct Atoms {
    xcb_atom_t tray, manager, opcode, visual, embedInfo, name, utf8;
  };
  struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
  };

  // Sets `screen_` and `atoms_`. False when the connection has ended.
  bool internAtoms(int screen);
  // Handles all events that have arrived. Removes the item when the connection has ended.
  void receive();
  void handle(const xcb_generic_event_t& event);
  // Asks the current tray, if there is one, to embed a new window.
  void join();
  // Destroys the window.
  void leave();
  // Creates the window with the tray's visual if that has an alpha channel, else with the root's.
  void createWindow(xcb_window_t tray);
  // The visual that the tray asks for, else the root's.
  xcb_visualid_t visualOf(xcb_window_t tray) const;
  // In bits; 0 for an unknown visual.
  std::uint8_t depthOf(xcb_visualid_t visual) const;
  // Paints the window. Waits for the X server if the window has no alpha channel.
  void draw();
  // The best pixmap, scaled and centred in a window of that size in pixels.
  QImage picture(int width, int height) const;
  void pressed(const xcb_button_press_event_t& event);

  const TrayLook look_;
  const TrayActivated activated_;
  std::unique_ptr<xcb_connection_t, Disconnect> connection_;
  GLibPointer<GSource> readable_;
  xcb_screen_t* screen_ = nullptr;
  Atoms atoms_{};
  xcb_window_t tray_ = XCB_WINDOW_NONE;
  xcb_window_t window_ = XCB_WINDOW_NONE;
  std::uint8_t depth_ = 0;
  int width_ = 0;
  int height_ = 0;
};

}  // namespace glintboard
