// SPDX-License-Identifier: MIT
// The language of the views.
#pragma once

#include <QStringList>

namespace glintboard {

// Makes the views speak the first of the user's languages that the agent knows, and English if that
// comes first or there is none. What goes to phones and into the log stays English. To be called
// once, after the application object is made and before any text is.
void speakLanguageOfUser();

// Makes the views that are made from now on speak it: "de", "es", "fr", "ja", or "en". False, and
// nothing changes, for a language that the agent does not know. Main thread.
bool speak(const QString& language);

// The language for a user who wants these, best first, named as in "de-AT".
QString languageFor(const QStringList& wanted);

}  // namespace glintboard
