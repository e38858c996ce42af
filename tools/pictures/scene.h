// The pictures of the documents.
#pragma once

#include <QImage>
#include <functional>
#include <vector>

#include "ui/design/appearance.h"

namespace glintboard {

// One picture. `draw` gets the appearance, and runs at the scale factor of the scene.
struct Scene {
  const char* name;  // of the file, without its ending
  double scale = 1;
  Appearance appearance;
  std::function<QImage(const Appearance&)> draw;
};

// The menu in its states.
std::vector<Scene> menuScenes();
// The deck editor in its states.
std::vector<Scene> editorScenes();
// What the windows share: every control, symbol and tile in its states.
std::vector<Scene> galleryScenes();

}  // namespace glintboard
