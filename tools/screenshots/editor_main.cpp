// Takes the pictures of the deck editor: FOLDER [SCALE [NAME...]].
#include <QGuiApplication>

#include "tools/screenshots/editor_scenes.h"

int main(int argc, char** argv) {
  using namespace glintboard;
  if (argc < 2) {
    qWarning("usage: glintboard-editor-screenshots FOLDER [SCALE [NAME...]]");
    return 2;
  }
  const QByteArray scale = argc > 2 ? argv[2] : "1";
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_QUICK_BACKEND", "software");
  qputenv("QT_SCALE_FACTOR", scale);
  const QGuiApplication application(argc, argv);
  const QStringList wanted = QGuiApplication::arguments().mid(3);
  for (const auto& scene : screenshots::editorScenes()) {
    if (scene.scale != scale.toDouble() || (!wanted.isEmpty() && !wanted.contains(scene.name))) {
      continue;
    }
    qInfo("%s", qPrintable(scene.name));
    test::EditorStage stage;
    scene.prepare(stage);
    stage.open(scene.appearance);
    auto* window = stage.presenter->window();
    window->setMinimumSize({});
    window->setGeometry({QPoint(0, 0), scene.size});
    stage.turnUntil([&] { return stage.isLoaded(); });
    stage.turnFor(300);
    scene.act(stage);
    stage.turnFor(600);
    if (!window->grabWindow().save(QString::fromLocal8Bit(argv[1]) + "/" + scene.name + ".png")) {
      return 1;
    }
  }
  return 0;
}
