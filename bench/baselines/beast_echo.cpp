// SPDX-License-Identifier: MIT
// The floor for a server built on Beast: sends each message back as it comes, and does nothing
// else.
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/websocket.hpp>
#include <memory>

#include "bench/baselines/echo_server.h"

namespace {

using namespace glintboard::bench;
namespace beast = boost::beast;

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

}  // namespace

int main(int, char** argv) {
  serve(argv[1], [](Socket socket) { std::make_shared<Session>(std::move(socket))->accept(); });
}
