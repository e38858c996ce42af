// SPDX-License-Identifier: MIT
#pragma once

namespace glintboard::shortcuts {

// What "help" prints.
const char* helpText();

}  // namespace glintboard::shortcuts
