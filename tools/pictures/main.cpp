// Draws the documents' pictures: glintboard-pictures FOLDER [SCALE].
#include <QGuiApplication>
#include <QProcess>
#include <algorithm>
#include <set>

#include "tools/pictures/scene.h"

namespace {

using namespace glintboard;

// Everything that can be drawn; more windows add their scenes here.
std::vector<Scene> allScenes() {
  std::vector<Scene> scenes = menuScenes();
  std::ranges::move(editorScenes(), std::back_inserter(scenes));
  std::ranges::move(galleryScenes(), std::back_inserter(scenes));
  return scenes;
}

bool drawAll(const QString& folder, double scale) {
  bool good = true;
  for (const Scene& scene : allScenes()) {
    if (scene.scale == scale) {
      const QString file = folder + "/" + scene.name + ".png";
      if (!scene.draw(scene.appearance).save(file)) {
        qWarning("%s cannot be drawn", qPrintable(file));
        good = false;
      }
    }
  }
  return good;
}

// A process has one scale factor: each gets a process.
bool drawAtEveryScale(const QString& program, const QString& folder) {
  std::set<double> scales;
  for (const Scene& scene : allScenes()) {
    scales.insert(scene.scale);
  }
  bool good = true;
  for (const double scale : scales) {
    good = QProcess::execute(program, {folder, QString::number(scale)}) == 0 && good;
  }
  return good;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    qWarning("usage: glintboard-pictures FOLDER [SCALE]");
    return 2;
  }
  if (argc < 3) {
    const QCoreApplication application(argc, argv);
    return drawAtEveryScale(argv[0], argv[1]) ? 0 : 1;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_QUICK_BACKEND", "software");
  qputenv("QT_SCALE_FACTOR", argv[2]);
  const QGuiApplication application(argc, argv);
  return drawAll(argv[1], QByteArray(argv[2]).toDouble()) ? 0 : 1;
}
