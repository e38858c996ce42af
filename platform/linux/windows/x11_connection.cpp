// SPDX-License-Identifier: MIT
#include "platform/linux/windows/x11_connection.h"

#include <X11/Xauth.h>
#include <fcntl.h>
#include <sys/socket.h>

#include <optional>

#include "platform/linux/base/c_pointer.h"
#include "platform/linux/base/host_name.h"
#include "platform/linux/windows/display_session.h"
#include "platform/run_on.h"

namespace glintboard {

namespace {

constexpr std::chrono::seconds connectionTimeout{2};

struct Display {
  int number = 0;
  int screen = 0;
};

std::optional<Display> parse(const std::string& name) {
  char* host = nullptr;
  Display display;
  if (xcb_parse_display(name.c_str(), &host, &display.number, &display.screen) == 0) {
    return std::nullopt;
  }
  const CPointer<char> owned(host);
  const std::string_view where(host);
  return where.empty() || where == "unix" ? std::optional(display) : std::nullopt;
}

// Some servers listen in the abstract namespace only.
FileDescriptor connectTo(int display) {
  const std::string path = "/tmp/.X11-unix/X" + std::to_string(display);
  auto socket = connectToSocket(path);
  return socket ? std::move(socket) : connectToSocket(path, true);
}

// The cookie that authorises this user; null when none is needed.
std::unique_ptr<Xauth, decltype(&XauDisposeAuth)> cookieFor(int display) {
  const std::string host = kernelHostName();
  const std::string number = std::to_string(display);
  std::string type = "MIT-MAGIC-COOKIE-1";
  char* types = type.data();
  const int typeLength = static_cast<int>(type.size());
  return {XauGetBestAuthByAddr(FamilyLocal, static_cast<unsigned short>(host.size()), host.data(),
                               static_cast<unsigned short>(number.size()), number.c_str(), 1,
                               &types, &typeLength),
          &XauDisposeAuth};
}

xcb_connection_t* talkOver(FileDescriptor socket, int display) {
  const auto cookie = cookieFor(display);
  xcb_auth_info_t auth{};
  if (cookie) {
    auth = {cookie->name_length, cookie->name, cookie->data_length, cookie->data};
  }
  return xcb_connect_to_fd(socket.release(), cookie ? &auth : nullptr);
}

}  // namespace

Awaitable<std::unique_ptr<X11Connection>> X11Connection::open(asio::any_io_executor workers,
                                                              std::string name) {
  const auto display = parse(name);
  if (!display) {
    co_return nullptr;
  }
  auto socket = std::make_shared<FileDescriptor>(connectTo(display->number));
  if (!*socket) {
    co_return nullptr;
  }
  // The library waits for a server that hangs until the connection ends.
  auto other = std::make_shared<FileDescriptor>(::fcntl(socket->get(), F_DUPFD_CLOEXEC, 0));
  asio::steady_timer deadline(co_await asio::this_coro::executor, connectionTimeout);
  deadline.async_wait([other](error_code error) {
    if (!error) {
      ::shutdown(other->get(), SHUT_RDWR);
    }
  });
  auto connecting = runOn(workers, [socket, display = *display] {
    std::unique_ptr<X11Connection> connection(
        new X11Connection(std::move(*socket), display.number));
    return connection->prepare(display.screen) ? std::move(connection) : nullptr;
  });
  co_return co_await std::move(connecting);
}

X11Connection::X11Connection(FileDescriptor socket, int display)
    : connection_(talkOver(std::move(socket), display)) {}

X11Connection::~X11Connection() {
  xcb_disconnect(connection_);
}

bool X11Connection::prepare(int screen) {
  if (xcb_connection_has_error(connection_) != 0) {
    return false;
  }
  auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection_));
  for (; screen > 0 && screens.rem > 1; --screen) {
    xcb_screen_next(&screens);
  }
  if (screens.rem == 0) {
    return false;
  }
  root_ = screens.data->root;

  const struct {
    std::string_view name;
    xcb_atom_t X11Atoms::* atom;
  } wanted[] = {
      {"_NET_ACTIVE_WINDOW", &X11Atoms::activeWindow},
      {"_NET_CLIENT_LIST", &X11Atoms::clientList},
      {"_NET_CLIENT_LIST_STACKING", &X11Atoms::clientListStacking},
      {"_NET_WM_PID", &X11Atoms::processId},
      {"_NET_WM_WINDOW_TYPE", &X11Atoms::windowType},
      {"_NET_WM_WINDOW_TYPE_DESKTOP", &X11Atoms::windowTypeDesktop},
      {"_NET_WM_WINDOW_TYPE_DOCK", &X11Atoms::windowTypeDock},
      {"_NET_RESTACK_WINDOW", &X11Atoms::restackWindow},
      {"_NET_CURRENT_DESKTOP", &X11Atoms::currentDesktop},
      {"_NET_WM_DESKTOP", &X11Atoms::desktopOfWindow},
      {"_NET_SUPPORTING_WM_CHECK", &X11Atoms::supportingWmCheck},
      {"_GTK_APPLICATION_ID", &X11Atoms::gtkApplicationId},
      {"_GLINTBOARD_TIME", &X11Atoms::time},
  };
  std::array<xcb_intern_atom_cookie_t, std::size(wanted)> asked{};
  for (std::size_t i = 0; i < asked.size(); ++i) {
    asked[i] = xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(wanted[i].name.size()),
                               wanted[i].name.data());
  }
  for (std::size_t i = 0; i < asked.size(); ++i) {
    const CPointer<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection_, asked[i], nullptr));
    if (!reply) {
      return false;
    }
    atoms_.*wanted[i].atom = reply->atom;
  }

  window_ = xcb_generate_id(connection_);
  const std::uint32_t reported = XCB_EVENT_MASK_PROPERTY_CHANGE;
  xcb_create_window(connection_, 0, window_, root_, -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                    XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &reported);
  return xcb_flush(connection_) > 0;
}

}  // namespace glintboard
