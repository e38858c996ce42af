// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Glintboard.Editor
import Glintboard.UI

// A thin scroll bar, visible while the content is larger than the view.
T.ScrollBar {
    id: bar

    implicitWidth: 10
    implicitHeight: 10
    padding: 2
    minimumSize: 0.08
    visible: bar.policy !== T.ScrollBar.AlwaysOff && bar.size < 1

    contentItem: Rectangle {
        implicitWidth: 6
        implicitHeight: 6
        radius: 3
        color: Theme.text
        opacity: bar.pressed ? 0.5 : bar.hovered ? 0.35 : 0.18
    }
}
