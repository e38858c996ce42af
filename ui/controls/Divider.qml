// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Window
import Glintboard.UI

// A hairline across its container.
Rectangle {
    implicitWidth: 100
    implicitHeight: 1 / Screen.devicePixelRatio
    color: Theme.stroke
    Accessible.role: Accessible.Separator
}
