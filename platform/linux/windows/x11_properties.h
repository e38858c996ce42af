// SPDX-License-Identifier: MIT
// Reads properties of X11 windows asynchronously.
#pragma once

#include <xcb/xcb.h>

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace glintboard {

// The value of a property, which another program may have set to anything. Truncated at 64 KiB.
class X11Property {
 public:
  // `reply` must outlive this; it is null if the window does not exist.
  explicit X11Property(const xcb_get_property_reply_t* reply) : reply_(reply) {}

  // Whether the property is set.
  bool exists() const { return reply_ != nullptr && reply_->type != XCB_ATOM_NONE; }
  // Its 32-bit numbers: windows, atoms, …; empty for another format.
  std::vector<std::uint32_t> numbers() const;
  // The first number, or 0.
  std::uint32_t number() const;
  // Its texts, which are separated by NULs; empty for another format.
  std::vector<std::string> texts() const;
  // The first text, or empty.
  std::string text() const;

 private:
  const xcb_get_property_reply_t* reply_;
};

// The pending requests for properties. For one thread.
class X11PropertyRequests {
 public:
  using Handler = std::function<void(const X11Property& property)>;

  explicit X11PropertyRequests(xcb_connection_t* connection) : connection_(connection) {}

  // Requests a property. A later `receive` calls `handler` with it.
  void ask(xcb_window_t window, xcb_atom_t property, Handler handler);
  // Handles the replies that have arrived. Whether there were any.
  bool receive();

 private:
  struct Request {
    unsigned sequence;
    Handler handler;
  };

  xcb_connection_t* connection_;
  // Replies arrive in the order of the requests.
  std::deque<Request> underWay_;
};

}  // namespace glintboard
