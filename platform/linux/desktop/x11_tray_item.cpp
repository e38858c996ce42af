// SPDX-License-Identifier: MIT
#include "platform/linux/desktop/x11_tray_item.h"

#include <glib-unix.h>

#include <QPainter>
#include <algorithm>
#include <array>
#include <cstring>

#include "platform/linux/base/c_pointer.h"

namespace glintboard {
namespace {

constexpr std::uint16_t firstSize = 24;

}  // namespace

X11TrayItem::X11TrayItem(TrayLook look, TrayActivated activated)
    : look_(std::move(look)), activated_(std::move(activated)) {
  int screen = 0;
  connection_.reset(xcb_connect(nullptr, &screen));
  if (xcb_connection_has_error(connection_.get()) != 0 || !internAtoms(screen)) {
    return;
  }
  readable_.reset(g_unix_fd_source_new(xcb_get_file_descriptor(connection_.get()), G_IO_IN));
  const auto ready = [](int, GIOCondition, void* self) -> int {
    static_cast<X11TrayItem*>(self)->receive();
    return G_SOURCE_CONTINUE;
  };
  g_source_set_callback(readable_.get(), G_SOURCE_FUNC(+ready), this, nullptr);
  g_source_attach(readable_.get(), g_main_context_get_thread_default());
  // A tray that starts sends a message to the root window.
  const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
  xcb_change_window_attributes(connection_.get(), screen_->root, XCB_CW_EVENT_MASK, &events);
  join();
  receive();
}

X11TrayItem::~X11TrayItem() = default;

bool X11TrayItem::internAtoms(int screen) {
  auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection_.get()));
  for (int i = 0; i < screen && screens.rem > 1; ++i) {
    xcb_screen_next(&screens);
  }
  screen_ = screens.data;
  const std::string tray = "_NET_SYSTEM_TRAY_S" + std::to_string(screen);
  const struct {
    std::string_view name;
    xcb_atom_t Atoms::* atom;
  } wanted[] = {
      {tray, &Atoms::tray},
      {"MANAGER", &Atoms::manager},
      {"_NET_SYSTEM_TRAY_OPCODE", &Atoms::opcode},
      {"_NET_SYSTEM_TRAY_VISUAL", &Atoms::visual},
      {"_XEMBED_INFO", &Atoms::embedInfo},
      {"_NET_WM_NAME", &Atoms::name},
      {"UTF8_STRING", &Atoms::utf8},
  };
  for (const auto& [name, atom] : wanted) {
    const auto asked =
        xcb_intern_atom(connection_.get(), 0, static_cast<std::uint16_t>(name.size()), name.data());
    const CPointer<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection_.get(), asked, nullptr));
    if (!reply) {
      return false;
    }
    atoms_.*atom = reply->atom;
  }
  return true;
}

void X11TrayItem::receive() {
  while (const CPointer<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
    handle(*event);
  }
  if (xcb_connection_has_error(connection_.get()) != 0) {
    readable_.reset();
    leave();
  } else {
    xcb_flush(connection_.get());
  }
}

void X11TrayItem::handle(const xcb_generic_event_t& event) {
  constexpr std::uint8_t sentByClient = 0x80;
  switch (event.response_type & ~sentByClient) {
    case XCB_CLIENT_MESSAGE: {
      const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
      if (message.type == atoms_.manager && message.data.data32[1] == atoms_.tray) {
        join();
      }
      break;
    }
    case XCB_DESTROY_NOTIFY: {
      const auto gone = reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window;
      if (gone == tray_ || gone == window_) {
        leave();
        join();
      }
      break;
    }
    case XCB_CONFIGURE_NOTIFY: {
      const auto& configured = reinterpret_cast<const xcb_configure_notify_event_t&>(event);
      if (configured.window == window_) {
        width_ = configured.width;
        height_ = configured.height;
        draw();
      }
      break;
    }
    case XCB_EXPOSE:
      draw();
      break;
    case XCB_BUTTON_PRESS:
      pressed(reinterpret_cast<const xcb_button_press_event_t&>(event));
      break;
    default:
      break;
  }
}

void X11TrayItem::join() {
  const auto asked = xcb_get_selection_owner(connection_.get(), atoms_.tray);
  const CPointer<xcb_get_selection_owner_reply_t> reply(
      xcb_get_selection_owner_reply(connection_.get(), asked, nullptr));
  if (!reply || reply->owner == XCB_WINDOW_NONE || reply->owner == tray_) {
    return;
  }
  leave();
  tray_ = reply->owner;
  const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
  xcb_change_window_attributes(connection_.get(), tray_, XCB_CW_EVENT_MASK, &events);
  createWindow(tray_);

  constexpr std::uint32_t requestDock = 0;
  xcb_client_message_event_t message{};
  message.response_type = XCB_CLIENT_MESSAGE;
  message.format = 32;
  message.window = tray_;
  message.type = atoms_.opcode;
  message.data.data32[0] = XCB_CURRENT_TIME;
  message.data.data32[1] = requestDock;
  message.data.data32[2] = window_;
  xcb_send_event(connection_.get(), 0, tray_, XCB_EVENT_MASK_NO_EVENT,
                 reinterpret_cast<const char*>(&message));
  xcb_flush(connection_.get());
}

void X11TrayItem::leave() {
  tray_ = XCB_WINDOW_NONE;
  if (window_ != XCB_WINDOW_NONE) {
    xcb_destroy_window(connection_.get(), window_);
    window_ = XCB_WINDOW_NONE;
  }
}

xcb_visualid_t X11TrayItem::visualOf(xcb_window_t tray) const {
  const auto asked =
      xcb_get_property(connection_.get(), 0, tray, atoms_.visual, XCB_ATOM_VISUALID, 0, 1);
  const CPointer<xcb_get_property_reply_t> reply(
      xcb_get_property_reply(connection_.get(), asked, nullptr));
  xcb_visualid_t visual = screen_->root_visual;
  if (reply && xcb_get_property_value_length(reply.get()) == sizeof visual) {
    std::memcpy(&visual, xcb_get_property_value(reply.get()), sizeof visual);
  }
  return visual;
}

std::uint8_t X11TrayItem::depthOf(xcb_visualid_t visual) const {
  for (auto depths = xcb_screen_allowed_depths_iterator(screen_); depths.rem > 0;
       xcb_depth_next(&depths)) {
    const auto* const visuals = xcb_depth_visuals(depths.data);
    const int count = xcb_depth_visuals_length(depths.data);
    if (std::any_of(visuals, visuals + count,
                    [&](const auto& each) { return each.visual_id == visual; })) {
      return depths.data->depth;
    }
  }
  return 0;
}

void X11TrayItem::createWindow(xcb_window_t tray) {
  auto* const connection = connection_.get();
  auto visual = visualOf(tray);
  depth_ = depthOf(visual);
  if (depth_ != 32) {
    visual = screen_->root_visual;
    depth_ = screen_->root_depth;
  }
  const auto colours = xcb_generate_id(connection);
  xcb_create_colormap(connection, XCB_COLORMAP_ALLOC_NONE, colours, screen_->root, visual);
  const bool seeThrough = depth_ == 32;
  // A transparent pixel, or the background pixmap.
  const std::uint32_t background = seeThrough ? 0 : std::uint32_t{XCB_BACK_PIXMAP_PARENT_RELATIVE};
  const std::array<std::uint32_t, 4> values{
      background, 0,
      XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_STRUCTURE_NOTIFY,
      colours};
  window_ = xcb_generate_id(connection);
  width_ = firstSize;
  height_ = firstSize;
  xcb_create_window(connection, depth_, window_, screen_->root, -1, -1, firstSize, firstSize, 0,
                    XCB_WINDOW_CLASS_INPUT_OUTPUT, visual,
                    (seeThrough ? XCB_CW_BACK_PIXEL : XCB_CW_BACK_PIXMAP) | XCB_CW_BORDER_PIXEL |
                        XCB_CW_EVENT_MASK | XCB_CW_COLORMAP,
                    values.data());
  xcb_free_colormap(connection, colours);
  const std::array<std::uint32_t, 2> embedInfo{0, 1};  // version, to be mapped
  xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window_, atoms_.embedInfo,
                      atoms_.embedInfo, 32, embedInfo.size(), embedInfo.data());
  xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window_, atoms_.name, atoms_.utf8, 8,
                      static_cast<std::uint32_t>(look_.title.size()), look_.title.data());
  // Trays shrink a window without a minimum size to nothing.
  constexpr std::uint32_t hasMinimum = 1U << 4;
  std::array<std::uint32_t, 18> sizes{hasMinimum};
  sizes[5] = firstSize;
  sizes[6] = firstSize;
  xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window_, XCB_ATOM_WM_NORMAL_HINTS,
                      XCB_ATOM_WM_SIZE_HINTS, 32, sizes.size(), sizes.data());
  constexpr char instanceAndClass[] = "glintboard-agent\0glintboard-agent";
  xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window_, XCB_ATOM_WM_CLASS,
                      XCB_ATOM_STRING, 8, sizeof instanceAndClass, instanceAndClass);
}

QImage X11TrayItem::picture(int width, int height) const {
  QImage canvas(width, height, QImage::Format_ARGB32_Premultiplied);
  canvas.fill(Qt::transparent);
  const int size = std::min(width, height);
  const auto& all = look_.pixmaps;
  const auto best = std::find_if(all.begin(), all.end(),
                                 [size](const QImage& image) { return image.width() >= size; });
  if (all.empty()) {
    return canvas;
  }
  const QImage& source = best == all.end() ? all.back() : *best;
  const QImage scaled = source.scaled(size, size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
  QPainter(&canvas).drawImage((width - size) / 2, (height - size) / 2, scaled);
  return canvas;
}

void X11TrayItem::draw() {
  if (window_ == XCB_WINDOW_NONE || width_ <= 0 || height_ <= 0) {
    return;
  }
  auto* const connection = connection_.get();
  const auto width = static_cast<std::uint16_t>(width_);
  const auto height = static_cast<std::uint16_t>(height_);
  QImage image = picture(width_, height_);
  xcb_clear_area(connection, 0, window_, 0, 0, width, height);
  if (depth_ != 32) {
    // Blends the item with the tray's background.
    const auto asked =
        xcb_get_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, window_, 0, 0, width, height, ~0U);
    const CPointer<xcb_get_image_reply_t> behind(xcb_get_image_reply(connection, asked, nullptr));
    if (!behind || xcb_get_image_data_length(behind.get()) < width_ * height_ * 4) {
      return;
    }
    const QImage panel(xcb_get_image_data(behind.get()), width_, height_, QImage::Format_RGB32);
    QImage blended = panel.copy();
    QPainter(&blended).drawImage(0, 0, image);
    image = blended;
  }
  const auto context = xcb_generate_id(connection);
  xcb_create_gc(connection, context, window_, 0, nullptr);
  xcb_put_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, window_, context, width, height, 0, 0, 0,
                depth_, static_cast<std::uint32_t>(image.sizeInBytes()), image.constBits());
  xcb_free_gc(connection, context);
}

void X11TrayItem::pressed(const xcb_button_press_event_t& event) {
  constexpr xcb_button_t lastButton = 3;  // the others are the wheel's
  if (event.detail <= lastButton) {
    activated_({event.root_x - event.event_x + width_ / 2,
                event.root_y - event.event_y + height_ / 2,
                {}});
  }
}

}  // namespace glintboard
