// SPDX-License-Identifier: MIT
#include "protocol/web_socket_auth.h"

#include "protocol/glintboard_service.h"
#include "protocol/text.h"

namespace glintboard {
std::optional<std::string> WebSocketAuth::token(const HeaderList& headers) {
  const std::string wanted = lowercased(GlintboardService::authHeaderName);
  for (const auto& [name, value] : headers) {
    if (lowercased(name) == wanted) {
      return value;
    }
  }
  return std::nullopt;
}

}  // namespace glintboard
