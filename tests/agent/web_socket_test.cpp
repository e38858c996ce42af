// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <poll.h>

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/write.hpp>

#include "agent/connection/web_socket_listener.h"
#include "platform/spawn.h"
#include "tests/support/test_agent.h"
#include "tools/phone/phone_connection.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;
using test::soon;

// A raw TCP connection to the server.
class RawClient {
 public:
  explicit RawClient(std::uint16_t port) {
    socket_.connect({asio::ip::address_v4::loopback(), port});
  }

  void send(std::string_view bytes) { asio::write(socket_, asio::buffer(bytes)); }
  // The bytes received until a pause of half a second or the end.
  std::string receive() {
    std::string all;
    pollfd waiting{socket_.native_handle(), POLLIN, 0};
    char buffer[4096];
    while (::poll(&waiting, 1, 500) == 1) {
      error_code error;
      all.append(buffer, socket_.read_some(asio::buffer(buffer), error));
      if (error) {
        return all + "[end]";
      }
    }
    return all;
  }

  void upgrade(const std::string& moreHeaders = "") {
    send(
        "GET / HTTP/1.1\r\nHost: a\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
        "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\nSec-WebSocket-Version: 13\r\n" +
        moreHeaders + "\r\n");
    EXPECT_EQ(receive(),
              "HTTP/1.1 101 Switching Protocols\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
              "Sec-WebSocket-Accept: s3pPLMBiTxaQ9kYGzzhZRbK+xOo=\r\n\r\n");
  }

 private:
  asio::io_context loop_;
  asio::ip::tcp::socket socket_{loop_};
};

// A short masked frame whose mask is zero.
std::string frame(unsigned char head, const std::string& payload) {
  std::string bytes;
  bytes += static_cast<char>(head);
  bytes += static_cast<char>(0x80 | payload.size());
  return bytes + std::string(4, '\0') + payload;
}

// A server that echoes every message `times` times.
class WebSocketTest : public testing::Test {
 protected:
  const std::uint16_t port = test::freePort();
  std::atomic<int> times = 1;
  std::atomic<int> live = 0;
  std::atomic<bool> ready = false;
  std::atomic<bool> paired = true;
  Executors executors;
  std::unique_ptr<WebSocketListener> listener;
  std::shared_ptr<WebSocketConnection> latest;

  void SetUp() override {
    run([this] {
      listener = std::make_unique<WebSocketListener>(
          executors.service(), port, std::make_shared<ConnectionBounds>(ConnectionLimits{}));
      listener->start([this](const WebSocketListenerState&) { ready = true; },
                      [this](std::shared_ptr<WebSocketConnection> connection) {
                        latest = connection;
                        latest->setPaired(paired);
                        spawn(executors.service(), echo(this, std::move(connection)), "echo");
                      });
    });
    ASSERT_TRUE(test::eventually([this] { return ready.load(); }));
  }
  void TearDown() override {
    run([this] {
      listener.reset();
      latest.reset();
    });
    EXPECT_TRUE(test::eventually([this] { return live == 0; })) << "a connection was not released";
  }

  void run(std::function<void()> work) {
    test::await(executors.service(), [](std::function<void()> given) -> Awaitable<> {
      given();
      co_return;
    }(std::move(work)));
  }

  static Awaitable<> echo(WebSocketTest* test, std::shared_ptr<WebSocketConnection> connection) {
    ++test->live;
    for (;;) {
      auto message = co_await connection->receive();
      if (!message) {
        break;
      }
      for (int i = 0; i < test->times; ++i) {
        co_await connection->send(*message);
      }
    }
    --test->live;
  }

  phone::PhoneConnection connect() { return {{"127.0.0.1", port}, std::nullopt, soon()}; }
};

TEST_F(WebSocketTest, AcceptsTextBinaryAndFragmentsAndAnswersPings) {
  RawClient client(port);
  client.upgrade("x-glintboard-token: first\r\nX-Glintboard-Token: second\r\n");
  client.send(frame(0x81, "text"));
  EXPECT_EQ(client.receive(), "\x81\x04text");
  client.send(frame(0x82, "binary"));
  EXPECT_EQ(client.receive(),
            "\x81\x06"
            "binary");
  client.send(frame(0x01, "frag") + frame(0x89, "ping") + frame(0x80, "ment"));
  EXPECT_EQ(client.receive(),
            "\x8a\x04ping\x81\x08"
            "fragment");
  run([this] { EXPECT_EQ(WebSocketAuth::token(latest->handshake().headers), "first"); });
}

TEST_F(WebSocketTest, ClosesOnlyTheConnectionThatBreaksTheRules) {
  auto other = connect();
  const std::pair<std::string, int> closes[] = {
      {frame(0x81, "\xff"), 1007},                  // text that is not UTF-8
      {frame(0xC1, "x"), 1002},                     // a reserved bit
      {frame(0x83, "x"), 1002},                     // an unknown opcode
      {frame(0x80, "x"), 1002},                     // continues nothing
      {frame(0x01, "x") + frame(0x81, "x"), 1002},  // begins within another
      {frame(0x09, "x"), 1002},                     // a ping in fragments
      {std::string("\x81\x01x", 3), 1002},          // not masked
      {std::string("\x89\xfe\x7f\x7f"), 1002},      // a long ping
      {std::string("\x81\xfe\0\x05", 4), 1002},     // a length that needs no more bytes
      {"\x82\xff" + std::string(8, '\x7f'), 1009},  // far too long
      {frame(0x88, {}), 1000},                      // a close without a reason
      {frame(0x88, "\x0b\xb8 bye"), 3000},          // with one
      {frame(0x88, "\x03\xed"), 1002}};             // with one that cannot be given
  for (const auto& [bytes, code] : closes) {
    RawClient client(port);
    client.upgrade();
    client.send(bytes);
    const std::string close = {'\x88', 2, static_cast<char>(code >> 8), static_cast<char>(code)};
    EXPECT_EQ(client.receive(), close + "[end]") << testing::PrintToString(bytes);
  }
  auto large = connect();
  large.send(std::string((1 << 20) + 1, 'x'), soon());
  EXPECT_THROW(large.receive(soon()), std::exception);
  other.send("still here", soon());
  EXPECT_EQ(other.receive(soon()), "still here");
}

TEST_F(WebSocketTest, RefusesInvalidUpgrades) {
  const std::string upgrade =
      "GET / HTTP/1.1\r\nHost: a\r\nUpgrade: websocket\r\nConnection: keep-alive, Upgrade\r\n";
  const std::string key = "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n";
  const std::string version = "Sec-WebSocket-Version: 13\r\n";
  const std::pair<std::string, std::string> refusals[] = {
      {"nonsense", "[end]"},
      {"GET / HTTP/1.1\r\nX: " + std::string(20'000, 'x') + "\r\n", ""},
      {"GET / HTTP/1.1\r\nHost: a\r\n", "HTTP/1.1 400 "},
      {"POST" + upgrade.substr(3) + key + version, "HTTP/1.1 400 "},
      {upgrade + version, "HTTP/1.1 400 "},
      {upgrade + "Sec-WebSocket-Key: c2hvcnQ=\r\n" + version, "HTTP/1.1 400 "},
      {upgrade + key + "Sec-WebSocket-Version: 8\r\n", "HTTP/1.1 426 "}};
  for (const auto& [request, beginning] : refusals) {
    RawClient client(port);
    client.send(request + "\r\n");
    const auto answer = client.receive();
    EXPECT_TRUE(answer.starts_with(beginning) && answer.ends_with("[end]")) << request << answer;
  }
}

TEST_F(WebSocketTest, SlowReaderStallsOnlyItselfAndLosesNoReply) {
  times = 64;
  auto slow = connect();
  auto quick = connect();
  const std::string large(256 << 10, 'a');
  slow.send(large, soon());
  slow.send("last", soon());
  std::this_thread::sleep_for(200ms);
  quick.send("quick", soon());
  EXPECT_EQ(quick.receive(soon()), "quick");
  for (int i = 0; i < 64; ++i) {
    ASSERT_EQ(slow.receive(soon()), large) << i;
  }
  EXPECT_EQ(slow.receive(soon()), "last");
}

TEST_F(WebSocketTest, SendsOnlyTheLatestOfSeveralPushes) {
  auto phone = connect();
  ASSERT_TRUE(test::eventually([this] { return live == 1; }));
  run([this] {
    for (int i = 0; i < 100; ++i) {
      latest->push(std::make_shared<const std::string>(std::to_string(i)));
    }
  });
  std::string last;
  while (last != "99") {
    auto received = phone.receive(soon());
    ASSERT_TRUE(received);
    last = *received;
    EXPECT_TRUE(last == "0" || last == "99") << last;
  }
}

}  // namespace
}  // namespace glintboard
