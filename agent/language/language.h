// SPDX-License-Identifier: MIT
// The language of the user interface.
#pragma once

#include <QStringList>

namespace glintboard {

// Selects the first of the user's languages that the agent has a translation for, else English.
// Messages to phones and the log stay English. Call it once, after the application object is
// created and before any text is read.
void speakLanguageOfUser();

// Sets the language of views created later: "de", "es", "fr", "ja", or "en". Returns false and
// changes nothing for a language without a translation. Main thread.
bool speak(const QString& language);

// The language for a user's preferences, best first, named as in "de-AT".
QString languageFor(const QStringList& wanted);

}  // namespace glintboard
