// SPDX-License-Identifier: MIT
// Process descriptors. The header of glibc 2.36 lacks `extern "C"`.
#pragma once

extern "C" {
#include <sys/pidfd.h>
}
