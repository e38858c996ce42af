// SPDX-License-Identifier: MIT
// Memory that only the start-up needs.
#pragma once

namespace glintboard {

// Releases the memory of code pages. The start-up of a desktop program uses most of the code of its
// libraries, later work only little of it; the kernel reads a page again from its cache when it is
// next used. Takes one or two milliseconds. Any thread.
void releaseStartupPages();

}  // namespace glintboard
