// SPDX-License-Identifier: MIT
// The least that a server can do: sends back what it reads.
#include <array>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/write.hpp>
#include <cstdlib>
#include <memory>

namespace {

namespace asio = boost::asio;
using Socket = asio::basic_stream_socket<asio::ip::tcp, asio::io_context::executor_type>;

class Session : public std::enable_shared_from_this<Session> {
 public:
  explicit Session(Socket socket) : socket_(std::move(socket)) {}

  void read() {
    socket_.async_read_some(
        asio::buffer(buffer_),
        [self = shared_from_this()](boost::system::error_code error, std::size_t count) {
          if (!error) {
            self->write(count);
          }
        });
  }

 private:
  void write(std::size_t count) {
    asio::async_write(socket_, asio::buffer(buffer_, count),
                      [self = shared_from_this()](boost::system::error_code error, std::size_t) {
                        if (!error) {
                          self->read();
                        }
                      });
  }

  Socket socket_;
  std::array<char, 1 << 16> buffer_;
};

using Acceptor = asio::basic_socket_acceptor<asio::ip::tcp, asio::io_context::executor_type>;

void accept(Acceptor& acceptor) {
  acceptor.async_accept([&acceptor](boost::system::error_code error, Socket socket) {
    if (!error) {
      socket.set_option(asio::ip::tcp::no_delay(true));
      std::make_shared<Session>(std::move(socket))->read();
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
