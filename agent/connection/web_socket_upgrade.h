// SPDX-License-Identifier: MIT
// The WebSocket upgrade (RFC 6455, section 4.2).
#pragma once

#include <boost/beast/http/empty_body.hpp>
#include <boost/beast/http/message.hpp>
#include <string>

namespace glintboard {

struct UpgradeAnswer {
  bool accepted = false;
  std::string text;  // the complete HTTP response
};

// The response to an upgrade request. Every valid request is accepted. Any thread.
UpgradeAnswer answerUpgrade(
    const boost::beast::http::request<boost::beast::http::empty_body>& request);

}  // namespace glintboard
