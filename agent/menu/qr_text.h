// SPDX-License-Identifier: MIT
// QR codes for a terminal.
#pragma once

#include <string>

namespace glintboard {

// The text as a QR code drawn in half blocks, black on white whatever the terminal's colours are,
// with its quiet zone; every line ends in a line break. Empty when it cannot be encoded.
std::string qrHalfBlocks(const std::string& text);

}  // namespace glintboard
