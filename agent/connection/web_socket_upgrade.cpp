// SPDX-License-Identifier: MIT
#include "agent/connection/web_socket_upgrade.h"

#include <openssl/sha.h>

#include <array>
#include <boost/beast/http/rfc7230.hpp>

#include "protocol/base64.h"

namespace glintboard {
namespace {

namespace http = boost::beast::http;
using http::field;

constexpr std::string_view version = "13";
constexpr std::size_t keyLength = 16;  // bytes, decoded

// The GUID of the protocol that is appended to the key.
constexpr std::string_view acceptSuffix = "258EAFA5-E914-47DA-95CA-C5AB0DC85B11";

std::string acceptValue(std::string_view key) {
  const std::string text = std::string(key).append(acceptSuffix);
  std::array<unsigned char, SHA_DIGEST_LENGTH> digest{};
  SHA1(reinterpret_cast<const unsigned char*>(text.data()), text.size(), digest.data());
  return base64Encode({reinterpret_cast<const char*>(digest.data()), digest.size()});
}

bool isUpgrade(const http::request<http::empty_body>& request) {
  return request.method() == http::verb::get && request.version() >= 11 &&
         request.count(field::host) != 0 &&
         http::token_list(request[field::connection]).exists("upgrade") &&
         http::token_list(request[field::upgrade]).exists("websocket");
}

}  // namespace

UpgradeAnswer answerUpgrade(const http::request<http::empty_body>& request) {
  const std::string_view key = request[field::sec_websocket_key];
  const auto keyBytes = base64Decode(key);
  if (!isUpgrade(request) || !keyBytes || keyBytes->size() != keyLength) {
    return {false, "HTTP/1.1 400 Bad Request\r\nConnection: close\r\nContent-Length: 0\r\n\r\n"};
  }
  if (std::string_view(request[field::sec_websocket_version]) != version) {
    return {false,
            "HTTP/1.1 426 Upgrade Required\r\nConnection: close\r\nContent-Length: 0\r\n"
            "Sec-WebSocket-Version: " +
                std::string(version) + "\r\n\r\n"};
  }
  return {true,
          "HTTP/1.1 101 Switching Protocols\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
          "Sec-WebSocket-Accept: " +
              acceptValue(key) + "\r\n\r\n"};
}

}  // namespace glintboard
