// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.Editor
import Glintboard.UI

// A key of the deck as a glass tile.
GlassDeckTileView {
    id: key

    property string kind: "app"
    property string label: ""
    property string iconName: ""
    property string iconSource: ""
    property color accent: Theme.accent
    property bool isMissingShortcut: false

    appearance: KeyArtwork.appearance(key.kind, key.label, key.iconName, key.iconSymbol)
    displayLabel: key.label
    macIcon: KeyArtwork.icon(key.iconSource)
    iconAccent: key.accent
    isMissing: key.isMissingShortcut

    Rectangle {
        anchors.horizontalCenter: parent.horizontalCenter
        // On the lower edge, where it covers neither the glyph nor the caption.
        y: key.faceSize - height + key.captionGap
        width: missing.width + 8
        height: missing.implicitHeight + 2
        radius: height / 2
        visible: key.isMissingShortcut
        color: Theme.warning

        Text {
            id: missing

            anchors.centerIn: parent
            // It may be wider than the face, as the label is.
            width: Math.min(implicitWidth, Math.max(key.width, key.faceSize) - 8)
            text: qsTr("Missing")
            font: Theme.fonts.uiSized(Math.max(8, Math.min(11, key.faceSize * 0.17)), Theme.Bold, false)
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: 7
            color: Theme.accentText
        }
    }
}
