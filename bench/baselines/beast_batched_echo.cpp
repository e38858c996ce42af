// SPDX-License-Identifier: MIT
// An echo with Beast's frames and the agent's batching: one read takes up to 8 KiB, and the replies
// to all messages in it leave in one write.
#include <array>
#include <boost/asio/dispatch.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/websocket.hpp>
#include <memory>
#include <string>

#include "bench/baselines/echo_server.h"

namespace {

using namespace glintboard::bench;
namespace beast = boost::beast;

// The stream below Beast's. Writes are gathered; a read that finds no buffered input sends them and
// then waits for the socket. Buffered input completes a read at once, in the call that starts it.
class BatchingStream {
 public:
  using executor_type = Socket::executor_type;

  explicit BatchingStream(Socket socket) : socket_(std::move(socket)) {}

  executor_type get_executor() { return socket_.get_executor(); }
  Socket& next_layer() { return socket_; }
  const Socket& next_layer() const { return socket_; }

  template <class Buffers>
  std::size_t read_some(const Buffers& buffers, error_code& error) {
    error = input_.size() == 0 ? asio::error::would_block : error_code{};
    return take(buffers);
  }
  template <class Buffers>
  std::size_t read_some(const Buffers& buffers) {
    return take(buffers);
  }
  template <class Buffers>
  std::size_t write_some(const Buffers& buffers, error_code& error) {
    error = {};
    return write_some(buffers);
  }
  template <class Buffers>
  std::size_t write_some(const Buffers& buffers) {
    const std::size_t count = beast::buffer_bytes(buffers);
    const std::size_t before = output_.size();
    output_.resize(before + count);
    return asio::buffer_copy(asio::buffer(output_) + before, buffers);
  }

  template <class Buffers, class Handler>
  void async_read_some(const Buffers& buffers, Handler&& handler) {
    if (input_.size() != 0) {
      complete(std::forward<Handler>(handler), take(buffers));
      return;
    }
    error_code error;
    asio::write(socket_, asio::buffer(output_), error);
    output_.clear();
    const auto executor = asio::get_associated_executor(handler, get_executor());
    socket_.async_read_some(
        asio::buffer(storage_),
        asio::bind_executor(executor, [this, buffers, handler = std::forward<Handler>(handler)](
                                          error_code readError, std::size_t count) mutable {
          input_ = asio::buffer(storage_, count);
          handler(readError, take(buffers));
        }));
  }
  template <class Buffers, class Handler>
  void async_write_some(const Buffers& buffers, Handler&& handler) {
    complete(std::forward<Handler>(handler), write_some(buffers));
  }

 private:
  template <class Buffers>
  std::size_t take(const Buffers& buffers) {
    const std::size_t count = asio::buffer_copy(buffers, input_);
    input_ += count;
    return count;
  }
  template <class Handler>
  void complete(Handler&& handler, std::size_t count) {
    asio::dispatch(get_executor(),
                   beast::bind_front_handler(std::forward<Handler>(handler), error_code{}, count));
  }

  Socket socket_;
  std::array<char, 8 << 10> storage_;
  asio::const_buffer input_;  // what Beast has not taken yet of `storage_`
  std::string output_;
};

void teardown(beast::role_type role, BatchingStream& stream, error_code& error) {
  beast::websocket::teardown(role, stream.next_layer(), error);
}
template <class Handler>
void async_teardown(beast::role_type role, BatchingStream& stream, Handler&& handler) {
  beast::websocket::async_teardown(role, stream.next_layer(), std::forward<Handler>(handler));
}

class Session : public std::enable_shared_from_this<Session> {
 public:
  explicit Session(Socket socket) : stream_(std::move(socket)) {}

  void accept() {
    stream_.text(true);
    stream_.set_option(beast::websocket::stream_base::timeout::suggested(beast::role_type::server));
    stream_.async_accept([self = shared_from_this()](error_code error) {
      if (!error) {
        self->read();
      }
    });
  }

 private:
  void read() {
    stream_.async_read(buffer_, [self = shared_from_this()](error_code error, std::size_t) {
      if (!error) {
        self->stream_.write(self->buffer_.data());
        self->buffer_.clear();
        self->read();
      }
    });
  }

  beast::websocket::stream<BatchingStream> stream_;
  beast::flat_buffer buffer_;
};

}  // namespace

int main(int, char** argv) {
  serve(argv[1], [](Socket socket) { std::make_shared<Session>(std::move(socket))->accept(); });
}
