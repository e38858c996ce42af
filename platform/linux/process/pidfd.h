// SPDX-License-Identifier: MIT
// Process descriptors. The C library's own header (glibc 2.36) lacks the linkage for C++.
#pragma once

extern "C" {
#include <sys/pidfd.h>
}
