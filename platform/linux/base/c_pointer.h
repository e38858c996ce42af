// SPDX-License-Identifier: MIT
// What a C library allocated with malloc.
#pragma once

#include <cstdlib>
#include <memory>

namespace glintboard {

struct Free {
  void operator()(void* memory) const { std::free(memory); }
};

template <class T>
using CPointer = std::unique_ptr<T, Free>;

}  // namespace glintboard
