// SPDX-License-Identifier: MIT
#include "platform/linux/applications/application_list.h"

namespace glintboard {

ApplicationListClient applicationList(std::shared_ptr<const ApplicationIndex> index) {
  ApplicationListClient client;
  client.applications = [index] {
    const auto installed = index->current();
    std::vector<ListedApplication> applications;
    for (const auto& entry : installed->all()) {
      if (!entry.noDisplay) {
        applications.push_back({entry.name, installed->bundleIdOf(entry), {entry.path}});
      }
    }
    return applications;
  };
  client.bundleIdOf = [index](const std::filesystem::path& launcher) -> std::optional<std::string> {
    if (launcher.extension() != ".desktop") {
      return std::nullopt;
    }
    const auto installed = index->current();
    const auto* entry = installed->atPath(launcher.lexically_normal());
    if (entry == nullptr) {
      entry = installed->withBundleId(launcher.stem().string());
    }
    return entry == nullptr ? std::nullopt : std::optional(installed->bundleIdOf(*entry));
  };
  return client;
}

}  // namespace glintboard
