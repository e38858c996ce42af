// SPDX-License-Identifier: MIT
// The installed applications as menus offer them.
#pragma once

#include <memory>

#include "platform/application_list_client.h"
#include "platform/linux/applications/application_index.h"

namespace glintboard {

ApplicationListClient applicationList(std::shared_ptr<const ApplicationIndex> index);

}  // namespace glintboard
