// SPDX-License-Identifier: MIT
// Properties of X11 windows, read without waiting for the server.
#pragma once

#include <xcb/xcb.h>

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace glintboard {

// What another program wrote into a property; may be anything. Not longer than 64 KiB.
class X11Property {
 public:
  // `reply` may be null: the window is gone.
  explicit X11Property(const xcb_get_property_reply_t* reply) : reply_(reply) {}

  // Whether the property is set.
  bool exists() const { return reply_ != nullptr && reply_->type != XCB_ATOM_NONE; }
  // Its numbers of 32 bits: windows, atoms, …; empty when it holds others.
  std::vector<std::uint32_t> numbers() const;
  // The first of them, or 0.
  std::uint32_t number() const;
  // Its texts, which are separated by NULs; empty when it holds none.
  std::vector<std::string> texts() const;
  // The first of them, or empty.
  std::string text() const;

 private:
  const xcb_get_property_reply_t* reply_;
};

// The requests for properties that are under way. For one thread.
class X11PropertyRequests {
 public:
  using Handler = std::function<void(const X11Property& property)>;

  explicit X11PropertyRequests(xcb_connection_t* connection) : connection_(connection) {}

  // Asks for a property; `handler` is called with it by a later `receive`.
  void ask(xcb_window_t window, xcb_atom_t property, Handler handler);
  // Handles the answers that have come. Whether there were any.
  bool receive();

 private:
  struct Request {
    unsigned sequence;
    Handler handler;
  };

  xcb_connection_t* connection_;
  // Answers come in the order of their requests.
  std::deque<Request> underWay_;
};

}  // namespace glintboard
