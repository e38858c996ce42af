// SPDX-License-Identifier: MIT
// The applications that the deck editor offers.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/workspace_client.h"

namespace glintboard {

// One application as a menu shows it.
struct ListedApplication {
  // The name in the user's language.
  std::string label;
  // The application's identifier in decks and messages.
  std::string bundleId;
  ApplicationLocation location;
  bool operator==(const ListedApplication&) const = default;
};

// Both operations answer from memory without blocking. Any thread; neither throws.
struct ApplicationListClient {
  // The installed applications that belong in menus, in a stable but arbitrary order.
  std::function<std::vector<ListedApplication>()> applications;
  // The identifier of the application that a launcher file starts: an installed desktop entry, or a
  // copy of one with the same file name. None when no such application is installed.
  std::function<std::optional<std::string>(const std::filesystem::path& launcher)> bundleIdOf;
};

}  // namespace glintboard
