// SPDX-License-Identifier: MIT
// The agent's item in a tray of the older kind, which embeds windows.
#pragma once

#include <xcb/xcb.h>

#include <functional>
#include <memory>

#include "platform/linux/base/glib_pointers.h"
#include "platform/tray.h"

namespace glintboard {

// Shows the item in the tray of the X display that the environment names, now and whenever one
// comes. For one thread with a running main context of its own.
class X11TrayItem {
 public:
  X11TrayItem(TrayLook look, TrayActivated activated);
  // `activated` is not called any more.
  ~X11TrayItem();
  X11TrayItem(const X11TrayItem&) = delete;
  X11TrayItem& operator=(const X11TrayItem&) = delete;

  bool isShown() const { return window_ != XCB_WINDOW_NONE; }

 private:
  struct Atoms {
    xcb_atom_t tray, manager, opcode, visual, embedInfo, name, utf8;
  };
  struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
  };

  bool internAtoms(int screen);
  void receive();
  void handle(const xcb_generic_event_t& event);
  void join();
  void leave();
  void createWindow(xcb_window_t tray);
  xcb_visualid_t visualOf(xcb_window_t tray) const;
  std::uint8_t depthOf(xcb_visualid_t visual) const;
  void draw();
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
