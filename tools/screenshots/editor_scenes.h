// The deck editor's window in the states that pictures are taken of.
#pragma once

#include <QString>
#include <functional>
#include <vector>

#include "tests/support/editor_stage.h"

namespace glintboard::screenshots {

struct EditorScene {
  QString name;
  Appearance appearance;
  QSize size{1120, 780};
  // Before the window opens, and after everything has loaded.
  std::function<void(test::EditorStage&)> prepare;
  std::function<void(test::EditorStage&)> act = [](test::EditorStage&) {};
  double scale = 1;
};

std::vector<EditorScene> editorScenes();

}  // namespace glintboard::screenshots
