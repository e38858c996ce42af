// SPDX-License-Identifier: MIT
// The constants that agent and phone share. They are part of the protocol: a different value cuts
// off the phones in use.
#pragma once

#include <cstdint>
#include <string_view>

namespace glintboard::GlintboardService {

// Service type and domain of the agent's DNS-SD advertisement, which the phone browses for.
inline constexpr std::string_view bonjourType = "_glintboard._tcp";
inline constexpr std::string_view bonjourDomain = "local.";
// TCP port of the WebSocket listener.
inline constexpr std::uint16_t defaultPort = 9847;
// HTTP header of the WebSocket upgrade that carries the device token, in any letter case.
inline constexpr std::string_view authHeaderName = "X-Glintboard-Token";

// Decimal digits of a PIN.
inline constexpr int pinLength = 6;
// Failed attempts after which pairing by PIN is locked.
inline constexpr int maxPinAttempts = 5;
// Random bytes in a pairing code, which is their URL-safe Base64 without padding: 43 characters.
inline constexpr int pairingCodeBytes = 32;
// Scheme and host of the address in the QR code, `glintboard://pair?…`; see `PairingQRPayload`.
inline constexpr std::string_view qrURLScheme = "glintboard";
inline constexpr std::string_view qrURLHost = "pair";

}  // namespace glintboard::GlintboardService
