#include "protocol/web_socket_auth.h"

#include <algorithm>

#include "protocol/glintboard_service.h"

namespace glintboard {
namespace {

char lowered(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, {}, lowered, lowered);
}

}  // namespace

std::optional<std::string> WebSocketAuth::token(const HeaderList& headers) {
  for (const auto& [name, value] : headers) {
    if (equalIgnoringCase(name, GlintboardService::authHeaderName)) {
      return value;
    }
  }
  return std::nullopt;
}

}  // namespace glintboard
