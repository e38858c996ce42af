// SPDX-License-Identifier: MIT
#include "ui/design/bundle_finder.h"

#include <QDir>

namespace glintboard {

QString BundleFinder::resourceBundle() {
  const QString bundle = QStringLiteral(":/Glintboard_GlintboardUI.bundle");
  if (!QDir(bundle).exists()) {
    qFatal("unable to find bundle named Glintboard_GlintboardUI");
  }
  return bundle;
}

}  // namespace glintboard
