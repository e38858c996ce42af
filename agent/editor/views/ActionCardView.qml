// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.Editor

// A built-in action.
LibraryCard {
    required symbolName
    kind: "action"
}
