// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.UI

// Makes its content wobble while it is active, unless motion is reduced:
// `EditModeJiggleModifier { isActive: true; seed: index; GlassDeckTileView {} }`.
Item {
    id: modifier

    property bool isActive: false
    property int seed: 0
    property alias overhang: host.overhang
    default property alias content: host.content

    implicitWidth: host.implicitWidth
    implicitHeight: host.implicitHeight

    SpringBoardJiggleHost {
        id: host

        anchors.fill: parent
        isActive: modifier.isActive && !Theme.reducedMotion
        seed: modifier.seed
    }
}
