// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.Editor

// An installed application.
LibraryCard {
    required iconSource
    required accent
    kind: "app"
}
