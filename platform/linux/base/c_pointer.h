// SPDX-License-Identifier: MIT
// Ownership of memory that a C library allocated with malloc.
#pragma once

#include <cstdlib>
#include <memory>

namespace glintboard {

struct Free {
  void operator()(void* memory) const { std::free(memory); }
};

// Owns an object and releases it with free().
template <class T>
using CPointer = std::unique_ptr<T, Free>;

}  // namespace glintboard
