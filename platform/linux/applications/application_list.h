// SPDX-License-Identifier: MIT
// The list of installed applications for menus.
#pragma once

#include <memory>

#include "platform/application_list_client.h"
#include "platform/linux/applications/application_index.h"

namespace glintboard {

// The client of `index`, which it keeps alive.
ApplicationListClient applicationList(std::shared_ptr<const ApplicationIndex> index);

}  // namespace glintboard
