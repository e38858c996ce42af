// SPDX-License-Identifier: MIT
// The floor for a server built on Beast: sends every message back, and does nothing else.
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/websocket.hpp>
#include <cstdlib>
#include <memory>

namespace {

namespace asio = boost::asio;
namespace beast = boost::beast;
using boost::system::error_code;
using Socket = asio::basic_stream_socket<asio::ip::tcp, asio::io_context::executor_type>;

class Session : public std::enable_shared_from_this<Session> {
 public:
  explicit Session(Socket socket) : stream_(std::move(socket)) {}

  void accept() {
    stream_.text(true);
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
        self->write();
      }
    });
  }
  void write() {
    stream_.async_write(buffer_.data(),
                        [self = shared_from_this()](error_code error, std::size_t count) {
                          if (!error) {
                            self->buffer_.consume(count);
                            self->read();
                          }
                        });
  }

  beast::websocket::stream<Socket> stream_;
  beast::flat_buffer buffer_;
};

using Acceptor = asio::basic_socket_acceptor<asio::ip::tcp, asio::io_context::executor_type>;

void accept(Acceptor& acceptor) {
  acceptor.async_accept([&acceptor](error_code error, Socket socket) {
    if (!error) {
      socket.set_option(asio::ip::tcp::no_delay(true));
      std::make_shared<Session>(std::move(socket))->accept();
    }
    accept(acceptor);
  });
}

}  // namespace

int main(int, char** argv) {
  asio::io_context context(1);
  Acceptor acceptor(context, {asio::ip::tcp::v4(), static_cast<std::uint16_t>(std::atoi(argv[1]))});
  accept(acceptor);
  context.run();
}
