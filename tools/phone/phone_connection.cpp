// SPDX-License-Identifier: MIT
#include "tools/phone/phone_connection.h"

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/beast/core/buffers_to_string.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <boost/beast/websocket.hpp>
#include <future>
#include <thread>

#include "platform/asio.h"
#include "protocol/glintboard_service.h"
#include "tools/phone/failure.h"

namespace glintboard::phone {
namespace {

namespace beast = boost::beast;
namespace websocket = beast::websocket;
using tcp = asio::ip::tcp;

// Many times the usual size of a snapshot or an icon.
constexpr std::size_t largestMessage = std::size_t{16} * 1024 * 1024;
constexpr auto closeTimeout = std::chrono::milliseconds(500);

PhoneFailure unreachable(const AgentAddress& address, const std::string& why) {
  return {ExitCode::unreachable, "unreachable",
          "Cannot reach an agent at " + address.text() + " (" + why +
              "). Is it running? Choose another computer with --host HOST."};
}

PhoneFailure notAnAgent(const AgentAddress& address, const std::string& why) {
  return {ExitCode::unreachable, "not_an_agent",
          "What answers at " + address.text() + " is no agent (" + why +
              "). Choose another computer with --host HOST."};
}

PhoneFailure connectionLost(const error_code& error) {
  return {ExitCode::unreachable, "connection_lost",
          "The connection to the agent was lost (" + error.message() + "). Try again."};
}

PhoneFailure noAnswer(const std::string& toWhat) {
  return {ExitCode::timeout, "timeout",
          "The agent did not answer " + toWhat +
              " in time. Try again, or wait longer with "
              "--timeout SECONDS."};
}

struct Resolution {
  error_code error = asio::error::timed_out;
  tcp::resolver::results_type endpoints;
};

// A name lookup cannot be interrupted, so it runs on a detached thread that may outlast the
// deadline and owns everything that it uses.
Resolution resolve(const AgentAddress& address, Deadline deadline) {
  std::promise<Resolution> promise;
  auto resolution = promise.get_future();
  std::thread([address, promise = std::move(promise)]() mutable {
    asio::io_context context;
    Resolution result;
    result.endpoints =
        tcp::resolver(context).resolve(address.host, std::to_string(address.port), result.error);
    promise.set_value(std::move(result));
  }).detach();
  return resolution.wait_until(deadline) == std::future_status::ready ? resolution.get()
                                                                      : Resolution{};
}

}  // namespace

struct PhoneConnection::Parts {
  asio::io_context context{1};
  websocket::stream<beast::tcp_stream> stream{context};
  beast::flat_buffer incoming;
  std::string outgoing;
  std::shared_ptr<std::optional<error_code>> reading;  // the pending read
  bool open = false;

  // Runs the context until `result` is set or the deadline has passed.
  void runUntil(const std::optional<error_code>& result, Deadline deadline) {
    context.restart();
    while (!result && context.run_one_until(deadline) != 0) {
    }
  }

  // Starts an operation with the handler passed to `start` and waits; none after the deadline.
  template <class Start>
  std::optional<error_code> await(Deadline deadline, Start start) {
    auto result = std::make_shared<std::optional<error_code>>();
    start([result](error_code error, auto&&...) { *result = error; });
    runUntil(*result, deadline);
    return *result;
  }

  void connect(const AgentAddress& address, Deadline deadline) {
    const auto [failure, endpoints] = resolve(address, deadline);
    if (failure) {
      throw unreachable(address, failure.message());
    }
    auto& socket = beast::get_lowest_layer(stream);
    const auto connected =
        await(deadline, [&](auto handler) { socket.async_connect(endpoints, handler); });
    if (connected != error_code{}) {
      throw unreachable(address, connected ? connected->message() : "no answer in time");
    }
    error_code ignored;
    socket.socket().set_option(tcp::no_delay(true), ignored);
  }

  void upgrade(const AgentAddress& address, const std::optional<std::string>& token,
               Deadline deadline) {
    stream.read_message_max(largestMessage);
    stream.set_option(websocket::stream_base::decorator([token](websocket::request_type& request) {
      if (token) {
        request.set(std::string(GlintboardService::authHeaderName), *token);
      }
    }));
    const auto upgraded = await(deadline, [&](auto handler) {
      stream.async_handshake(address.text(), "/", std::move(handler));
    });
    if (!upgraded) {
      throw noAnswer("the connection");
    }
    if (*upgraded) {
      throw notAnAgent(address, upgraded->message());
    }
    stream.text(true);
    open = true;
  }
};

PhoneConnection::PhoneConnection(const AgentAddress& address,
                                 const std::optional<std::string>& token, Deadline deadline)
    : parts_(std::make_unique<Parts>()) {
  parts_->connect(address, deadline);
  parts_->upgrade(address, token, deadline);
}

PhoneConnection::PhoneConnection(PhoneConnection&&) noexcept = default;

PhoneConnection::~PhoneConnection() {
  if (parts_ && parts_->open) {
    parts_->await(std::chrono::steady_clock::now() + closeTimeout, [this](auto handler) {
      parts_->stream.async_close(websocket::close_code::normal, handler);
    });
  }
}

void PhoneConnection::send(std::string text, Deadline deadline) {
  parts_->outgoing = std::move(text);
  const auto sent = parts_->await(deadline, [this](auto handler) {
    parts_->stream.async_write(asio::buffer(parts_->outgoing), handler);
  });
  if (sent != error_code{}) {
    parts_->open = false;
    throw sent ? connectionLost(*sent) : noAnswer("a message");
  }
}

std::optional<std::string> PhoneConnection::receive(Deadline deadline) {
  auto& reading = parts_->reading;
  if (!reading) {
    reading = std::make_shared<std::optional<error_code>>();
    parts_->stream.async_read(
        parts_->incoming, [result = reading](error_code error, std::size_t) { *result = error; });
  }
  parts_->runUntil(*reading, deadline);
  if (!*reading) {
    return std::nullopt;
  }
  const error_code error = **reading;
  reading.reset();
  if (error) {
    parts_->open = false;
    throw connectionLost(error);
  }
  std::string text = beast::buffers_to_string(parts_->incoming.data());
  parts_->incoming.clear();
  return text;
}

}  // namespace glintboard::phone
