// SPDX-License-Identifier: MIT
#include "protocol/pairing_qr_payload.h"

#include <algorithm>
#include <boost/url/encode.hpp>
#include <boost/url/parse.hpp>
#include <boost/url/rfc/unreserved_chars.hpp>
#include <boost/url/url_view.hpp>
#include <charconv>
#include <map>

#include "protocol/glintboard_service.h"
#include "protocol/text.h"
#include "protocol/utf8.h"

namespace glintboard {
namespace {

namespace urls = boost::urls;

std::optional<std::int64_t> integer(std::string_view digits) {
  if (digits.starts_with('+') && !digits.starts_with("+-")) {
    digits.remove_prefix(1);
  }
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (error != std::errc{} || end != digits.data() + digits.size()) {
    return std::nullopt;
  }
  return number;
}

// The decoded query items that have a value; none when a name occurs twice. The items are separated
// here, because the iterator of Boost.URL 1.81 reads past the end when the last one is empty.
std::optional<std::map<std::string, std::string>> queryItems(const urls::url_view& url) {
  std::map<std::string, std::string> items;
  std::string_view rest = url.encoded_query();
  while (!rest.empty()) {
    const auto item = rest.substr(0, rest.find('&'));
    rest.remove_prefix(std::min(item.size() + 1, rest.size()));
    const auto equals = item.find('=');
    if (equals == std::string_view::npos) {
      continue;
    }
    const auto decoded = [](std::string_view text) { return urls::pct_string_view(text).decode(); };
    if (!items.emplace(decoded(item.substr(0, equals)), decoded(item.substr(equals + 1))).second) {
      return std::nullopt;
    }
  }
  return items;
}

}  // namespace

std::optional<std::string> PairingQRPayload::encodedURL() const {
  if (!isValidUtf8(macName) || !isValidUtf8(code)) {
    return std::nullopt;
  }
  std::string url;
  url.append(GlintboardService::qrURLScheme).append("://").append(GlintboardService::qrURLHost);
  url.append("?v=").append(std::to_string(version));
  url.append("&name=").append(urls::encode(macName, urls::unreserved_chars));
  url.append("&code=").append(urls::encode(code, urls::unreserved_chars));
  return url;
}

std::optional<PairingQRPayload> PairingQRPayload::parse(std::string_view text) {
  const auto url = urls::parse_uri(trimmed(text));
  if (!url || url->scheme() != GlintboardService::qrURLScheme ||
      url->encoded_host() != GlintboardService::qrURLHost || !url->has_query()) {
    return std::nullopt;
  }
  const auto items = queryItems(*url);
  if (!items || !items->contains("v") || !items->contains("name") || !items->contains("code")) {
    return std::nullopt;
  }
  const auto version = integer(items->at("v"));
  PairingQRPayload payload{items->at("name"), items->at("code"), version.value_or(0)};
  if (!version || payload.macName.empty() || payload.code.empty() ||
      !isValidUtf8(payload.macName) || !isValidUtf8(payload.code)) {
    return std::nullopt;
  }
  return payload;
}

}  // namespace glintboard
