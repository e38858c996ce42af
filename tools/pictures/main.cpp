// SPDX-License-Identifier: MIT
// Draws the pictures in the documents: glintboard-pictures FOLDER [LANGUAGE].
#include <QGuiApplication>
#include <QProcess>
#include <algorithm>
#include <memory>
#include <set>

#include "agent/language/language.h"
#include "tools/pictures/pseudo_language.h"
#include "tools/pictures/scene.h"

namespace glintboard {
namespace {

const QString pseudo = QStringLiteral("pseudo");
bool speaksPseudo = false;
int faults = 0;

// All scenes. Further windows add theirs here.
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

// The scenes mostly wait for animations to end, so several processes share them.
constexpr std::size_t shares = 4;

bool drawShare(const QString& folder, const QString& language, double scale, std::size_t share) {
  const auto scenes = allScenes();
  bool good = true;
  for (std::size_t index = share; index < scenes.size(); index += shares) {
    if (scenes[index].scale == scale) {
      good = draw(scenes[index], folder, language) && good;
    }
  }
  return good && faults == 0;
}

// One process for each scale factor, which Qt fixes at the start.
bool drawAll(const QString& program, const QString& folder, const QString& language) {
  std::set<double> scales;
  for (const Scene& scene : allScenes()) {
    scales.insert(scene.scale);
  }
  std::vector<std::unique_ptr<QProcess>> processes;
  for (const double scale : scales) {
    for (std::size_t share = 0; share < shares; ++share) {
      auto& process = *processes.emplace_back(std::make_unique<QProcess>());
      process.setProcessChannelMode(QProcess::ForwardedChannels);
      process.start(program, {folder, language, QString::number(scale), QString::number(share)});
    }
  }
  // Waits for all, so that all faults are reported.
  return std::ranges::count_if(processes, [](const auto& process) {
           process->waitForFinished(-1);
           return process->error() == QProcess::FailedToStart ||
                  process->exitStatus() != QProcess::NormalExit || process->exitCode() != 0;
         }) == 0;
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
    qWarning("usage: glintboard-pictures FOLDER [LANGUAGE]");
    return 2;
  }
  const QString language = QString::fromLocal8Bit(argc < 3 ? "en" : argv[2]);
  if (argc < 5) {
    const QCoreApplication application(argc, argv);
    return glintboard::drawAll(argv[0], argv[1], language) ? 0 : 1;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_QUICK_BACKEND", "software");
  qputenv("QT_SCALE_FACTOR", argv[3]);
  const QGuiApplication application(argc, argv);
  const double scale = QByteArray(argv[3]).toDouble();
  return glintboard::drawShare(argv[1], language, scale, QByteArray(argv[4]).toUInt()) ? 0 : 1;
}
