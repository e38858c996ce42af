// SPDX-License-Identifier: MIT
// A pseudo-language that reveals untranslated and truncated texts.
#pragma once

#include <QTranslator>

class QQuickWindow;

namespace glintboard {

// Translates every known text into its English letters with accents, 40 % longer and in brackets. A
// text without brackets is not translated.
class PseudoLanguage : public QTranslator {
 public:
  PseudoLanguage();
  QString translate(const char* context, const char* source, const char* disambiguation,
                    int count) const override;
};

// Reports on standard error each text of the window that is truncated, overlaps another or is not
// in the pseudo-language, and returns their number. `own` are the user's texts, which are not
// translated.
int faultyTexts(QQuickWindow& window, const QStringList& own);

}  // namespace glintboard
