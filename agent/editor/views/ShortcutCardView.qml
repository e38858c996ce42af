// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.Editor

// One of the user's Shortcuts.
LibraryCard {
    required subtitle
    required symbolName
    required iconSource
    required accent
    kind: "shortcut"
}
