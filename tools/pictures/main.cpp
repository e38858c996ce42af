// Draws the documents' pictures: glintboard-pictures FOLDER [LANGUAGE [SCALE]].
#include <QGuiApplication>
#include <QProcess>
#include <algorithm>
#include <set>

#include "agent/language/language.h"
#include "tools/pictures/pseudo_language.h"
#include "tools/pictures/scene.h"

namespace glintboard {
namespace {

const QString pseudo = QStringLiteral("pseudo");
bool speaksPseudo = false;
int faults = 0;

// Everything that can be drawn; more windows add their scenes here.
std::vector<Scene> allScenes() {
  std::vector<Scene> scenes = menuScenes();
  std::ranges::move(editorScenes(), std::back_inserter(scenes));
  std::ranges::move(galleryScenes(), std::back_inserter(scenes));
  return scenes;
}

bool draw(const Scene& scene, const QString& folder, const QString& language) {
  const QString own = QString::fromLatin1(scene.language);
  speaksPseudo = own.isEmpty() && language == pseudo;
  PseudoLanguage pseudoLanguage;
  if (speaksPseudo) {
    QCoreApplication::installTranslator(&pseudoLanguage);
  } else if (!speak(own.isEmpty() ? language : own)) {
    qWarning("unknown language: %s", qPrintable(language));
    return false;
  }
  const int before = faults;
  const QString file = folder + "/" + scene.name + ".png";
  const bool saved = scene.draw(scene.appearance).save(file);
  if (!saved || faults > before) {
    qWarning("%s %s", qPrintable(file), saved ? "shows these texts" : "cannot be drawn");
  }
  return saved;
}

bool drawAll(const QString& folder, const QString& language, double scale) {
  bool good = true;
  for (const Scene& scene : allScenes()) {
    if (scene.scale == scale) {
      good = draw(scene, folder, language) && good;
    }
  }
  return good && faults == 0;
}

// A process has one scale factor: each gets a process.
bool drawAtEveryScale(const QString& program, const QString& folder, const QString& language) {
  std::set<double> scales;
  for (const Scene& scene : allScenes()) {
    scales.insert(scene.scale);
  }
  bool good = true;
  for (const double scale : scales) {
    good = QProcess::execute(program, {folder, language, QString::number(scale)}) == 0 && good;
  }
  return good;
}

}  // namespace

void checkTexts(QQuickWindow& window, const QStringList& own) {
  if (speaksPseudo) {
    faults += faultyTexts(window, own);
  }
}

}  // namespace glintboard

int main(int argc, char** argv) {
  if (argc < 2) {
    qWarning("usage: glintboard-pictures FOLDER [LANGUAGE [SCALE]]");
    return 2;
  }
  const QString language = QString::fromLocal8Bit(argc < 3 ? "en" : argv[2]);
  if (argc < 4) {
    const QCoreApplication application(argc, argv);
    return glintboard::drawAtEveryScale(argv[0], argv[1], language) ? 0 : 1;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_QUICK_BACKEND", "software");
  qputenv("QT_SCALE_FACTOR", argv[3]);
  const QGuiApplication application(argc, argv);
  return glintboard::drawAll(argv[1], language, QByteArray(argv[3]).toDouble()) ? 0 : 1;
}
