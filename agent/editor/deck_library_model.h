// SPDX-License-Identifier: MIT
// The cards of one library tab.
#pragma once

#include <QAbstractListModel>
#include <QColor>
#include <QHash>
#include <QSet>
#include <vector>

#include "agent/editor/icon_accent.h"

namespace glintboard {

// What a card shows.
struct LibraryEntry {
  // The data of a drag: a bundle identifier, an action's id or a Shortcut's identifier.
  QString payload;
  QString label;
  QString subtitle = {};
  // Shown while there is no icon.
  QString symbolName = {};
  QString iconSource = {};
  QColor accent = fallbackAccent();
};

// The entries whose label contains the filter, in their order. A new icon, or a key added to the
// deck, changes its own row only. Main thread.
class DeckLibraryModel : public QAbstractListModel {
  Q_OBJECT
  Q_PROPERTY(int count READ count NOTIFY countChanged)

 public:
  enum Role {
    PayloadRole = Qt::UserRole + 1,
    LabelRole,
    SubtitleRole,
    SymbolNameRole,
    IconSourceRole,
    AccentRole,
    IsInDeckRole,
    IsFullRole,
  };

  using QAbstractListModel::QAbstractListModel;

  int count() const { return static_cast<int>(rows_.size()); }
  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

  void setEntries(std::vector<LibraryEntry> entries);
  // Ignores case. An empty filter shows everything.
  void setFilter(const QString& filter);
  // The payloads of the keys on the deck.
  void setDeck(const QSet<QString>& inDeck, bool isFull);
  void setIcon(const QString& payload, const QString& source, const QColor& accent);

 Q_SIGNALS:
  void countChanged();

 private:
  void showMatching();
  // -1 when it is not shown.
  int rowOf(const QString& payload) const;
  void changed(int firstRow, int lastRow, const QList<int>& roles);

  std::vector<LibraryEntry> entries_;
  QHash<QString, std::size_t> indices_;  // of the entries, by payload
  std::vector<std::size_t> rows_;        // the entry of each row
  std::vector<int> rowOf_;               // the row of each entry, or -1
  QString filter_;
  QSet<QString> inDeck_;
  bool isFull_ = false;
};

}  // namespace glintboard
