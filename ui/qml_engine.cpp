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
  lookOf(engine).setAppearance(appearance);
}

Look& lookOf(QQmlEngine& engine) {
  const int type = qmlTypeId("Glintboard.UI", 1, 0, "Look");
  return *engine.singletonInstance<Look*>(type);
}

}  // namespace glintboard
