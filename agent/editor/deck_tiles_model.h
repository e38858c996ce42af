// SPDX-License-Identifier: MIT
// The keys of the deck that is being edited.
#pragma once

#include <QAbstractListModel>
#include <QColor>
#include <utility>
#include <vector>

#include "protocol/deck_tile.h"

namespace glintboard {

// What makes a key the same one after a change: its kind and `derivedId`.
using DeckKeyIdentity = std::pair<DeckTileKind, std::string>;

// How far a key is that the user tries out.
enum class KeyTrial { none, launching, succeeded };

// A key and what is known of what it stands for.
struct DeckKey {
  DeckTile tile;
  QString iconSource;  // empty without an icon
  QColor accent;
  bool isMissingShortcut = false;  // its Shortcut is gone
  bool isInstalled = true;         // its application is
  bool isRunning = false;
  KeyTrial trial = KeyTrial::none;
  bool operator==(const DeckKey&) const = default;
};

// Reports insertions, removals and moves as such, so that a view can let keys make room.
class DeckTilesModel : public QAbstractListModel {
  Q_OBJECT
  Q_PROPERTY(int count READ count NOTIFY countChanged)

 public:
  enum Role {
    SlotRole = Qt::UserRole + 1,
    TileIdRole,
    PayloadRole,
    LabelRole,
    KindRole,
    BundleIdRole,
    IconNameRole,
    IconSymbolRole,
    IconSourceRole,
    AccentRole,
    IsMissingShortcutRole,
    IsInstalledRole,
    IsRunningRole,
    IsLaunchingRole,
    DidSucceedRole,
  };

  using QAbstractListModel::QAbstractListModel;

  int count() const { return static_cast<int>(keys_.size()); }
  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

  // Turns the keys shown into these, by the fewest steps for one key added, removed or moved.
  void setKeys(const std::vector<DeckKey>& keys);

 Q_SIGNALS:
  void countChanged();

 private:
  void removeKeysNotIn(const std::vector<DeckKey>& keys);
  void arrange(const std::vector<DeckKey>& keys);
  void move(std::size_t from, std::size_t to);
  void insert(std::size_t position, const DeckKey& key);

  std::vector<DeckKey> keys_;
};

}  // namespace glintboard
