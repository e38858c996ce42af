// SPDX-License-Identifier: MIT
#pragma once

namespace glintboard::shortcuts {

// The text of "help".
const char* helpText();

}  // namespace glintboard::shortcuts
