// SPDX-License-Identifier: MIT
// The applications that the user may choose from.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/workspace_client.h"

namespace glintboard {

// One application as menus offer it.
struct ListedApplication {
  // In the user's language.
  std::string label;
  // The one identifier that the application goes by everywhere.
  std::string bundleId;
  ApplicationLocation location;
  bool operator==(const ListedApplication&) const = default;
};

// Both operations answer from memory, at once, on any thread; neither throws.
struct ApplicationListClient {
  // Every installed application that is offered in menus, in no order that means anything but
  // always the same.
  std::function<std::vector<ListedApplication>()> applications;
  // The identifier of the application that a launcher file starts: the installed entry itself, or
  // a copy of it elsewhere that bears the same name. None when no such application is installed.
  std::function<std::optional<std::string>(const std::filesystem::path& launcher)> bundleIdOf;
};

}  // namespace glintboard
