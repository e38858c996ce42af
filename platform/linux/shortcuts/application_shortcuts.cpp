// SPDX-License-Identifier: MIT
#include "platform/linux/shortcuts/application_shortcuts.h"

#include <boost/uuid/name_generator_sha1.hpp>
#include <boost/uuid/string_generator.hpp>
#include <boost/uuid/uuid_io.hpp>

#include "platform/linux/shortcuts/shortcut_text.h"

namespace glintboard {

namespace {

std::string identifierOf(const std::string& desktopId, const std::string& action) {
  // Decks contain identifiers that are derived from this: it must never change.
  constexpr const char* nameSpace = "5b0d8f0e-2f5c-4f0c-9d0a-6a1f3c7e8b24";
  boost::uuids::name_generator_sha1 derive(boost::uuids::string_generator()(nameSpace));
  return upperCase(to_string(derive(desktopId + "\n" + action)));
}

}  // namespace

std::vector<Shortcut> applicationShortcuts(const std::vector<DesktopEntry>& entries) {
  std::vector<Shortcut> shortcuts;
  for (const auto& entry : entries) {
    if (entry.hidden || entry.noDisplay) {
      continue;
    }
    for (const auto& action : entry.actions) {
      shortcuts.push_back({.identifier = identifierOf(entry.id, action.id),
                           .name = oneLine(entry.name + ": " + action.name),
                           .icon = action.icon.empty() ? entry.icon : action.icon,
                           .command = "",
                           .action = ApplicationAction{entry.id, action.id},
                           .file = entry.path});
    }
  }
  return shortcuts;
}

}  // namespace glintboard
