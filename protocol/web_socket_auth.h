// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace glintboard {

// The headers of an upgrade request as they came.
using HeaderList = std::vector<std::pair<std::string, std::string>>;

namespace WebSocketAuth {
// The device token: the value, unchanged, of the first header of that name in any letter case.
std::optional<std::string> token(const HeaderList& headers);
}  // namespace WebSocketAuth

}  // namespace glintboard
