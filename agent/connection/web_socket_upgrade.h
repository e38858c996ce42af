// SPDX-License-Identifier: MIT
// How an HTTP connection becomes a WebSocket (RFC 6455, section 4.2).
#pragma once

#include <boost/beast/http/empty_body.hpp>
#include <boost/beast/http/message.hpp>
#include <string>

namespace glintboard {

struct UpgradeAnswer {
  bool accepted = false;
  std::string text;  // the whole answer, as it is sent
};

// The answer to a request. Every proper upgrade is accepted, with no header beyond those it needs.
UpgradeAnswer answerUpgrade(
    const boost::beast::http::request<boost::beast::http::empty_body>& request);

}  // namespace glintboard
