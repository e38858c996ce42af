// SPDX-License-Identifier: MIT
// Registers the editor's models with QML.
#pragma once

#include <QtQml/qqmlregistration.h>

#include "agent/editor/deck_editor_model.h"

namespace glintboard {

struct DeckEditorModelInQml {
  Q_GADGET
  QML_FOREIGN(glintboard::DeckEditorModel)
  QML_NAMED_ELEMENT(DeckEditorModel)
  QML_UNCREATABLE("The window's presenter creates it.")
};

struct DeckTilesModelInQml {
  Q_GADGET
  QML_FOREIGN(glintboard::DeckTilesModel)
  QML_NAMED_ELEMENT(DeckTilesModel)
  QML_UNCREATABLE("It belongs to a DeckEditorModel.")
};

struct DeckLibraryModelInQml {
  Q_GADGET
  QML_FOREIGN(glintboard::DeckLibraryModel)
  QML_NAMED_ELEMENT(DeckLibraryModel)
  QML_UNCREATABLE("It belongs to a DeckEditorModel.")
};

struct AppsLibraryInQml {
  Q_GADGET
  QML_FOREIGN(glintboard::AppsLibrary)
  QML_NAMED_ELEMENT(AppsLibrary)
  QML_UNCREATABLE("It belongs to a DeckEditorModel.")
};

struct ShortcutsLibraryInQml {
  Q_GADGET
  QML_FOREIGN(glintboard::ShortcutsLibrary)
  QML_NAMED_ELEMENT(ShortcutsLibrary)
  QML_UNCREATABLE("It belongs to a DeckEditorModel.")
};

}  // namespace glintboard
