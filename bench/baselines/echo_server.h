// SPDX-License-Identifier: MIT
// The accept loop of the baseline servers.
#pragma once

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <cstdint>
#include <cstdlib>
#include <utility>

namespace glintboard::bench {

namespace asio = boost::asio;
using boost::system::error_code;
using Socket = asio::basic_stream_socket<asio::ip::tcp, asio::io_context::executor_type>;
using Acceptor = asio::basic_socket_acceptor<asio::ip::tcp, asio::io_context::executor_type>;

template <class Start>
void acceptNext(Acceptor& acceptor, Start start) {
  acceptor.async_accept([&acceptor, start](error_code error, Socket socket) {
    if (!error) {
      socket.set_option(asio::ip::tcp::no_delay(true));
      start(std::move(socket));
    }
    acceptNext(acceptor, start);
  });
}

// Listens on a TCP port of every IPv4 address and passes each accepted socket to `start`. Runs on
// the calling thread and never returns; throws boost::system::system_error if it cannot listen.
template <class Start>
void serve(const char* port, Start start) {
  asio::io_context context(1);
  Acceptor acceptor(context, {asio::ip::tcp::v4(), static_cast<std::uint16_t>(std::atoi(port))});
  acceptNext(acceptor, start);
  context.run();
}

}  // namespace glintboard::bench
