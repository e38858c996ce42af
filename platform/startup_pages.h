// SPDX-License-Identifier: MIT
#pragma once

namespace glintboard {

// Gives back the memory of the code that only the start has used: starting a desktop's program
// touches most of its libraries, and doing its work hardly any of them. What is used again comes
// back by itself, from the system's cache. Takes a millisecond or two. Any thread.
void releaseStartupPages();

}  // namespace glintboard
