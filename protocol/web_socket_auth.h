// SPDX-License-Identifier: MIT
// How a phone authenticates: by a header of its upgrade request.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace glintboard {

// The headers of an upgrade request as they came: names and values, in order, repeated ones too.
using HeaderList = std::vector<std::pair<std::string, std::string>>;

namespace WebSocketAuth {
// The device token: the value, unchanged, of the first header named `authHeaderName` in any letter
// case; none without one. Not checked against the paired phone. Any thread.
std::optional<std::string> token(const HeaderList& headers);
}  // namespace WebSocketAuth

}  // namespace glintboard
