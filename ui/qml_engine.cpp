// SPDX-License-Identifier: MIT
#include "ui/qml_engine.h"

#include <QQmlEngine>

#include "ui/design/deck_typography.h"

// Written by the build; a static library's module is known only after this call.
void qml_register_types_Glintboard_UI();

namespace glintboard {

void prepareEngine(QQmlEngine& engine, const Appearance& appearance) {
  qml_register_types_Glintboard_UI();
  DeckTypography::registerFonts();
  engine.addImportPath(QStringLiteral("qrc:/"));
  themeOf(engine).setAppearance(appearance);
}

Theme& themeOf(QQmlEngine& engine) {
  const int type = qmlTypeId("Glintboard.UI", 1, 0, "Theme");
  return *engine.singletonInstance<Theme*>(type);
}

}  // namespace glintboard
