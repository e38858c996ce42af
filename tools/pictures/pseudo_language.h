// SPDX-License-Identifier: MIT
// A language that nobody speaks, for finding texts that no other can be given or that are cut.
#pragma once

#include <QTranslator>

class QQuickWindow;

namespace glintboard {

// Says every text that is known to translators in English letters with accents, two fifths longer
// and between brackets; a text without them is not translated.
class PseudoLanguage : public QTranslator {
 public:
  PseudoLanguage();
  QString translate(const char* context, const char* source, const char* disambiguation,
                    int count) const override;
};

// Reports on the error output every text of the window that is cut, lies on another or does not
// speak the pseudo-language, and returns how many there are. `own` are the user's texts.
int faultyTexts(QQuickWindow& window, const QStringList& own);

}  // namespace glintboard
