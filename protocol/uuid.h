// SPDX-License-Identifier: MIT
// Identifiers of messages, devices and Shortcuts. Any thread.
#pragma once

#include <boost/uuid/uuid.hpp>
#include <optional>
#include <string>
#include <string_view>

namespace glintboard {

// Sixteen bytes, compared as such: letter case is a matter of text alone.
using Uuid = boost::uuids::uuid;

// Whether `text` is five groups of 8, 4, 4, 4 and 12 hexadecimal digits of either case, joined by
// hyphens.
bool hasUuidShape(std::string_view text);

// Reads the canonical 36-character form, in either letter case; none for any other text.
std::optional<Uuid> parseUuid(std::string_view text);

// The canonical form in upper case, as the wire and stored pairings have it.
std::string uuidText(const Uuid& uuid);

// A random UUID (version 4) from the system's secure source. Throws SecureRandomError.
Uuid randomUuid();

}  // namespace glintboard
