// SPDX-License-Identifier: MIT
// How the Secret Service is addressed on the session bus.
#pragma once

namespace glintboard::SecretServiceNames {

inline constexpr const char* bus = "org.freedesktop.secrets";
inline constexpr const char* path = "/org/freedesktop/secrets";
inline constexpr const char* interface = "org.freedesktop.Secret.Service";

}  // namespace glintboard::SecretServiceNames
