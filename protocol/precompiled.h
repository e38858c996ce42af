// SPDX-License-Identifier: MIT
// Precompiled header of the protocol library: what nearly all of its files include.
#pragma once

#include <boost/describe.hpp>
#include <boost/mp11.hpp>
#include <boost/system/result.hpp>
#include <boost/uuid/uuid.hpp>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>
