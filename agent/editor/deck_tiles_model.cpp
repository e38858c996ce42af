// SPDX-License-Identifier: MIT
#include "agent/editor/deck_tiles_model.h"

#include <algorithm>
#include <optional>
#include <set>

namespace glintboard {
namespace {

QString qtText(const std::string& utf8) {
  return QString::fromStdString(utf8);
}

DeckKeyIdentity identity(const DeckKey& key) {
  return {key.tile.kind, key.tile.derivedId()};
}

std::set<DeckKeyIdentity> identities(const std::vector<DeckKey>& keys) {
  std::set<DeckKeyIdentity> all;
  for (const auto& key : keys) {
    all.insert(identity(key));
  }
  return all;
}

std::size_t indexOf(const std::vector<DeckKey>& keys, const DeckKeyIdentity& wanted) {
  return static_cast<std::size_t>(std::ranges::find(keys, wanted, identity) - keys.begin());
}

}  // namespace

int DeckTilesModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : count();
}

QVariant DeckTilesModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
    return {};
  }
  const auto& key = keys_[static_cast<std::size_t>(index.row())];
  const auto& tile = key.tile;
  switch (role) {
    case SlotRole:
      return static_cast<qlonglong>(tile.slot);
    case TileIdRole:
      return qtText(tile.id);
    case PayloadRole:
      return qtText(tile.derivedId());
    case Qt::DisplayRole:
    case LabelRole:
      return qtText(tile.label);
    case KindRole:
      return qtText(std::string(rawValue(tile.kind)));
    case BundleIdRole:
      return qtText(tile.bundleId);
    case IconNameRole:
      return qtText(tile.iconName.value_or(""));
    case IconSymbolRole:
      return qtText(tile.iconSymbol.value_or(""));
    case IconSourceRole:
      return key.iconSource;
    case AccentRole:
      return key.accent;
    case IsMissingShortcutRole:
      return key.isMissingShortcut;
    case IsInstalledRole:
      return key.isInstalled;
    case IsRunningRole:
      return key.isRunning;
    case IsLaunchingRole:
      return key.trial == KeyTrial::launching;
    case DidSucceedRole:
      return key.trial == KeyTrial::succeeded;
    default:
      return {};
  }
}

QHash<int, QByteArray> DeckTilesModel::roleNames() const {
  return {{SlotRole, "slot"},
          {TileIdRole, "tileId"},
          {PayloadRole, "payload"},
          {LabelRole, "label"},
          {KindRole, "kind"},
          {BundleIdRole, "bundleId"},
          {IconNameRole, "iconName"},
          {IconSymbolRole, "iconSymbol"},
          {IconSourceRole, "iconSource"},
          {AccentRole, "accent"},
          {IsMissingShortcutRole, "isMissingShortcut"},
          {IsInstalledRole, "isInstalled"},
          {IsRunningRole, "isRunning"},
          {IsLaunchingRole, "isLaunching"},
          {DidSucceedRole, "didSucceed"}};
}

void DeckTilesModel::setKeys(const std::vector<DeckKey>& keys) {
  const int before = count();
  if (identities(keys).size() < keys.size()) {
    // Only a damaged deck has a key twice; then there is no telling which went where.
    beginResetModel();
    keys_ = keys;
    endResetModel();
  } else {
    removeKeysNotIn(keys);
    arrange(keys);
    for (std::size_t position = 0; position < keys.size(); ++position) {
      if (keys_[position] != keys[position]) {
        keys_[position] = keys[position];
        const auto changed = index(static_cast<int>(position));
        Q_EMIT dataChanged(changed, changed);
      }
    }
  }
  if (count() != before) {
    Q_EMIT countChanged();
  }
}

void DeckTilesModel::removeKeysNotIn(const std::vector<DeckKey>& keys) {
  auto remaining = identities(keys);
  // From the front, so that of keys that are there twice the first one stays.
  for (std::size_t position = 0; position < keys_.size();) {
    if (remaining.erase(identity(keys_[position])) != 0) {
      ++position;
      continue;
    }
    const int row = static_cast<int>(position);
    beginRemoveRows({}, row, row);
    keys_.erase(keys_.begin() + row);
    endRemoveRows();
  }
}

void DeckTilesModel::arrange(const std::vector<DeckKey>& keys) {
  for (std::size_t position = 0; position < keys.size(); ++position) {
    const auto wanted = identity(keys[position]);
    const auto from = indexOf(keys_, wanted);
    if (from == keys_.size()) {
      insert(position, keys[position]);
    } else if (from == position) {
      continue;
    } else if (from == position + 1) {
      // The key at this position moved back, not those behind it.
      move(position, std::min(indexOf(keys, identity(keys_[position])), keys_.size() - 1));
    } else {
      move(from, position);
    }
  }
}

void DeckTilesModel::move(std::size_t from, std::size_t to) {
  const int source = static_cast<int>(from);
  const int target = static_cast<int>(to);
  // Qt names the row before which the moved one goes, counted before the move.
  beginMoveRows({}, source, source, {}, to > from ? target + 1 : target);
  if (to > from) {
    std::rotate(keys_.begin() + source, keys_.begin() + source + 1, keys_.begin() + target + 1);
  } else {
    std::rotate(keys_.begin() + target, keys_.begin() + source, keys_.begin() + source + 1);
  }
  endMoveRows();
}

void DeckTilesModel::insert(std::size_t position, const DeckKey& key) {
  const int row = static_cast<int>(position);
  beginInsertRows({}, row, row);
  keys_.insert(keys_.begin() + row, key);
  endInsertRows();
}

}  // namespace glintboard
