// SPDX-License-Identifier: MIT
// The constants that agent and phone share.
#pragma once

#include <cstdint>
#include <string_view>

namespace glintboard::GlintboardService {

// The agent's DNS-SD advertisement.
inline constexpr std::string_view bonjourType = "_glintboard._tcp";
inline constexpr std::string_view bonjourDomain = "local.";
// TCP port of the WebSocket listener.
inline constexpr std::uint16_t defaultPort = 9847;
// Header of the WebSocket upgrade that carries the device token.
inline constexpr std::string_view authHeaderName = "X-Glintboard-Token";

inline constexpr int pinLength = 6;
// Failed attempts that lock pairing by PIN.
inline constexpr int maxPinAttempts = 5;
// Random bytes behind a pairing code.
inline constexpr int pairingCodeBytes = 32;
// Scheme and host of the pairing address in the QR code.
inline constexpr std::string_view qrURLScheme = "glintboard";
inline constexpr std::string_view qrURLHost = "pair";

}  // namespace glintboard::GlintboardService
