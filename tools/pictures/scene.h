// SPDX-License-Identifier: MIT
// The pictures of the documents.
#pragma once

#include <QImage>
#include <QStringList>
#include <functional>
#include <vector>

#include "ui/design/appearance.h"

class QQuickWindow;

namespace glintboard {

// One picture. `draw` gets the appearance, and runs at the scale factor of the scene.
struct Scene {
  const char* name;  // of the file, without its ending
  double scale = 1;
  Appearance appearance;
  std::function<QImage(const Appearance&)> draw;
  const char* language = nullptr;  // instead of the one that the pictures are drawn in
};

// To be called by a scene when its window stands: in the pseudo-language each text that is cut,
// lies on another or is not translated is reported, and counts against the pictures. `own` are the
// user's texts.
void checkTexts(QQuickWindow& window, const QStringList& own);

// The menu in its states.
std::vector<Scene> menuScenes();
// The deck editor in its states.
std::vector<Scene> editorScenes();
// What the windows share: every control, symbol and tile in its states.
std::vector<Scene> galleryScenes();

}  // namespace glintboard
