// SPDX-License-Identifier: MIT
#include "agent/connection/open_connections.h"

#include <utility>

namespace glintboard {

void OpenConnections::add(const Connection& connection, const std::optional<std::string>& token) {
  Entry& entry = all_[connection.get()];
  entry = {connection, token.value_or("")};
  updatePaired(entry);
  reportChanges();
}

void OpenConnections::remove(const Connection& connection) {
  all_.erase(connection.get());
  reportChanges();
}

void OpenConnections::update() {
  for (auto& [key, entry] : all_) {
    updatePaired(entry);
  }
  reportChanges();
}

void OpenConnections::endPushes() {
  for (auto& [key, entry] : all_) {
    entry.receivesPushes = false;
  }
  reportChanges();
}

void OpenConnections::push(const std::shared_ptr<const std::string>& text) const {
  for (const auto& [key, entry] : all_) {
    if (entry.isPaired && entry.receivesPushes) {
      entry.connection->push(text);
    }
  }
}

void OpenConnections::probe() const {
  for (const auto& [key, entry] : all_) {
    entry.connection->probe();
  }
}

void OpenConnections::cancelAll() {
  const auto all = std::exchange(all_, {});
  reportChanges();
  for (const auto& [key, entry] : all) {
    entry.connection->cancel();
  }
}

void OpenConnections::updatePaired(Entry& entry) const {
  const bool paired = !entry.token.empty() && parts_.isPaired(entry.token);
  if (std::exchange(entry.isPaired, paired) != paired) {
    entry.connection->setPaired(paired);
  }
}

void OpenConnections::reportChanges() {
  std::size_t paired = 0;
  bool pushes = false;
  for (const auto& [key, entry] : all_) {
    paired += entry.isPaired ? 1 : 0;
    pushes = pushes || (entry.isPaired && entry.receivesPushes);
  }
  if (std::exchange(paired_, paired) != paired) {
    parts_.pairedChanged(paired);
  }
  if (hasPushes_.exchange(pushes) != pushes) {
    parts_.hasPushesChanged();
  }
}

}  // namespace glintboard
