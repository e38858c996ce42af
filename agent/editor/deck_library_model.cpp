// SPDX-License-Identifier: MIT
#include "agent/editor/deck_library_model.h"

namespace glintboard {

int DeckLibraryModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : count();
}

QVariant DeckLibraryModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
    return {};
  }
  const auto& entry = entries_[rows_[static_cast<std::size_t>(index.row())]];
  switch (role) {
    case PayloadRole:
      return entry.payload;
    case Qt::DisplayRole:
    case LabelRole:
      return entry.label;
    case SubtitleRole:
      return entry.subtitle;
    case SymbolNameRole:
      return entry.symbolName;
    case IconSourceRole:
      return entry.iconSource;
    case AccentRole:
      return entry.accent;
    case IsInDeckRole:
      return inDeck_.contains(entry.payload);
    case IsFullRole:
      return isFull_;
    default:
      return {};
  }
}

QHash<int, QByteArray> DeckLibraryModel::roleNames() const {
  return {{PayloadRole, "payload"},       {LabelRole, "label"},
          {SubtitleRole, "subtitle"},     {SymbolNameRole, "symbolName"},
          {IconSourceRole, "iconSource"}, {AccentRole, "accent"},
          {IsInDeckRole, "isInDeck"},     {IsFullRole, "isFull"}};
}

void DeckLibraryModel::setEntries(std::vector<LibraryEntry> entries) {
  beginResetModel();
  entries_ = std::move(entries);
  indices_.clear();
  for (std::size_t index = 0; index < entries_.size(); ++index) {
    indices_.insert(entries_[index].payload, index);
  }
  showMatching();
  endResetModel();
  Q_EMIT countChanged();
}

void DeckLibraryModel::setFilter(const QString& filter) {
  if (filter == filter_) {
    return;
  }
  beginResetModel();
  filter_ = filter;
  showMatching();
  endResetModel();
  Q_EMIT countChanged();
}

void DeckLibraryModel::setDeck(const QSet<QString>& inDeck, bool isFull) {
  const QSet<QString> before = std::exchange(inDeck_, inDeck);
  for (const auto& payload : (before - inDeck) + (inDeck - before)) {
    if (const int row = rowOf(payload); row >= 0) {
      changed(row, row, {IsInDeckRole});
    }
  }
  if (isFull != isFull_) {
    isFull_ = isFull;
    if (count() > 0) {
      changed(0, count() - 1, {IsFullRole});
    }
  }
}

void DeckLibraryModel::setIcon(const QString& payload, const QString& source,
                               const QColor& accent) {
  const auto index = indices_.constFind(payload);
  if (index == indices_.constEnd()) {
    return;
  }
  entries_[*index].iconSource = source;
  entries_[*index].accent = accent;
  if (const int row = rowOf(payload); row >= 0) {
    changed(row, row, {IconSourceRole, AccentRole});
  }
}

void DeckLibraryModel::showMatching() {
  rows_.clear();
  rowOf_.assign(entries_.size(), -1);
  for (std::size_t index = 0; index < entries_.size(); ++index) {
    if (entries_[index].label.contains(filter_, Qt::CaseInsensitive)) {
      rowOf_[index] = count();
      rows_.push_back(index);
    }
  }
}

int DeckLibraryModel::rowOf(const QString& payload) const {
  const auto index = indices_.constFind(payload);
  return index == indices_.constEnd() ? -1 : rowOf_[*index];
}

void DeckLibraryModel::changed(int firstRow, int lastRow, const QList<int>& roles) {
  Q_EMIT dataChanged(index(firstRow), index(lastRow), roles);
}

}  // namespace glintboard
