// SPDX-License-Identifier: MIT
// The name of this program on the desktop.
#pragma once

#include <string_view>

namespace glintboard {

// The agent's reverse-DNS identifier: its desktop entry's id, its windows' application id, and the
// prefix of its keychain items.
inline constexpr std::string_view agentIdentifier = "org.glintboard.Agent";

}  // namespace glintboard
