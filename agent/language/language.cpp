// SPDX-License-Identifier: MIT
#include "agent/language/language.h"

#include <QCoreApplication>
#include <QFile>
#include <QLocale>
#include <QTranslator>
#include <clocale>

namespace glintboard {
namespace {

const QString english = QStringLiteral("en");

QString fileOf(const QString& language) {
  return QStringLiteral(":/translations/glintboard_%1.qm").arg(language);
}

QTranslator& translator() {
  static QTranslator translator;
  return translator;
}

}  // namespace

void speakLanguageOfUser() {
  speak(languageFor(QLocale::system().uiLanguages()));
  // Error messages of libraries stay English, since they are sent to phones.
  std::setlocale(LC_MESSAGES, "C");
}

bool speak(const QString& language) {
  if (language != english && !QFile::exists(fileOf(language))) {
    return false;
  }
  QCoreApplication::removeTranslator(&translator());
  return language == english || (translator().load(fileOf(language)) &&
                                 QCoreApplication::installTranslator(&translator()));
}

QString languageFor(const QStringList& wanted) {
  for (const QString& name : wanted) {
    const QString language = name.section(QLatin1Char('-'), 0, 0);
    if (language == english || QFile::exists(fileOf(language))) {
      return language;
    }
  }
  return english;
}

}  // namespace glintboard
