// SPDX-License-Identifier: MIT
// The pictures in the documents.
#pragma once

#include <QImage>
#include <QStringList>
#include <functional>
#include <vector>

#include "ui/design/appearance.h"

class QQuickWindow;

namespace glintboard {

// One picture. `draw` is called with the appearance in a process of the scene's scale factor.
struct Scene {
  const char* name;  // of the file, without its extension
  double scale = 1;
  Appearance appearance;
  std::function<QImage(const Appearance&)> draw;
  const char* language = nullptr;  // overrides the language of the run
};

// Called by a scene when its window is shown. In the pseudo-language it reports each text that is
// truncated, overlaps another or is not translated, and makes the run fail. `own` are the user's
// texts.
void checkTexts(QQuickWindow& window, const QStringList& own);

// The states of the menu.
std::vector<Scene> menuScenes();
// The states of the deck editor.
std::vector<Scene> editorScenes();
// The states of every shared control, symbol and tile.
std::vector<Scene> galleryScenes();

}  // namespace glintboard
