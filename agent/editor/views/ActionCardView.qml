// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.Editor

// Something that the computer can do by itself.
LibraryCard {
    required symbolName
    kind: "action"
}
