// SPDX-License-Identifier: MIT
// The least that a server can do: sends back the bytes that it reads.
#include <array>
#include <boost/asio/write.hpp>
#include <memory>

#include "bench/baselines/echo_server.h"

namespace {

using namespace glintboard::bench;

class Session : public std::enable_shared_from_this<Session> {
 public:
  explicit Session(Socket socket) : socket_(std::move(socket)) {}

  void read() {
    socket_.async_read_some(asio::buffer(buffer_),
                            [self = shared_from_this()](error_code error, std::size_t count) {
                              if (!error) {
                                self->write(count);
                              }
                            });
  }

 private:
  void write(std::size_t count) {
    asio::async_write(socket_, asio::buffer(buffer_, count),
                      [self = shared_from_this()](error_code error, std::size_t) {
                        if (!error) {
                          self->read();
                        }
                      });
  }

  Socket socket_;
  std::array<char, 1 << 16> buffer_;
};

}  // namespace

int main(int, char** argv) {
  serve(argv[1], [](Socket socket) { std::make_shared<Session>(std::move(socket))->read(); });
}
