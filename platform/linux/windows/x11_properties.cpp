// SPDX-License-Identifier: MIT
#include "platform/linux/windows/x11_properties.h"

#include <xcb/xcbext.h>

#include <cstring>
#include <utility>

#include "platform/linux/base/c_pointer.h"

namespace glintboard {

namespace {

constexpr std::uint32_t mostWords = 16384;

}  // namespace

std::vector<std::uint32_t> X11Property::numbers() const {
  if (!exists() || reply_->format != 32) {
    return {};
  }
  const auto count = static_cast<std::size_t>(xcb_get_property_value_length(reply_)) / 4;
  std::vector<std::uint32_t> numbers(count);
  if (count > 0) {
    std::memcpy(numbers.data(), xcb_get_property_value(reply_), count * 4);
  }
  return numbers;
}

std::uint32_t X11Property::number() const {
  const auto all = numbers();
  return all.empty() ? 0 : all.front();
}

std::vector<std::string> X11Property::texts() const {
  if (!exists() || reply_->format != 8) {
    return {};
  }
  const std::string_view all(static_cast<const char*>(xcb_get_property_value(reply_)),
                             static_cast<std::size_t>(xcb_get_property_value_length(reply_)));
  std::vector<std::string> texts;
  for (std::size_t start = 0; start < all.size();) {
    const auto end = std::min(all.find('\0', start), all.size());
    texts.emplace_back(all.substr(start, end - start));
    start = end + 1;
  }
  return texts;
}

std::string X11Property::text() const {
  const auto all = texts();
  return all.empty() ? "" : all.front();
}

void X11PropertyRequests::ask(xcb_window_t window, xcb_atom_t property, Handler handler) {
  const auto cookie =
      xcb_get_property(connection_, 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, mostWords);
  underWay_.push_back({cookie.sequence, std::move(handler)});
}

bool X11PropertyRequests::receive() {
  bool any = false;
  while (!underWay_.empty()) {
    void* reply = nullptr;
    xcb_generic_error_t* error = nullptr;
    if (xcb_poll_for_reply(connection_, underWay_.front().sequence, &reply, &error) == 0) {
      break;
    }
    const CPointer<xcb_get_property_reply_t> property(
        static_cast<xcb_get_property_reply_t*>(reply));
    const CPointer<xcb_generic_error_t> failure(error);
    const auto handler = std::move(underWay_.front().handler);
    underWay_.pop_front();
    any = true;
    handler(X11Property(property.get()));
  }
  return any;
}

}  // namespace glintboard
