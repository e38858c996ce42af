// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Glintboard.Editor
import Glintboard.UI

// A slot with a key. The key can be dragged, and removed while it is hovered.
T.Control {
    id: cell

    required property int index
    required property string payload
    required property string kind
    required property string label
    required property string iconName
    required property string iconSymbol
    required property string iconSource
    required property color accent
    required property bool isMissingShortcut
    required property bool isInstalled
    required property bool isRunning
    required property bool isLaunching
    required property bool didSucceed
    // A drag is over this slot.
    property bool isDropTarget: false
    property bool reduceMotion: Theme.reducedMotion
    property bool wobbles: false
    property bool dragIsOn: false
    property bool showsLabel: true
    property bool isCurrent: false
    property int keyCount: 0
    property real faceSize: 52
    property DraggedKey dragged: null
    // Seeds the jiggle, so that a key keeps its motion in every slot.
    property int seed: 0
    readonly property bool isDragged: cell.dragged !== null && cell.dragged.owner === cell
    readonly property string trouble: cell.isMissingShortcut ? qsTr("Its Shortcut is missing") : cell.isInstalled ? "" : qsTr("Not installed")

    signal remove
    signal chosen
    signal tried

    // Animates the key from that point to its slot, with a small overshoot.
    function settleFrom(x: real, y: real): void {
        if (cell.reduceMotion)
            return;
        settle.stop();
        shift.x = x - cell.x;
        shift.y = y - cell.y;
        settle.start();
    }
    function appear(): void {
        if (!cell.reduceMotion)
            pop.start();
    }

    hoverEnabled: true

    Accessible.role: Accessible.ListItem
    Accessible.name: cell.label
    Accessible.description: qsTr("Key %1 of %2").arg(cell.index + 1).arg(cell.keyCount) + [cell.trouble, cell.isLaunching ? qsTr("Launching") : cell.didSucceed ? qsTr("It worked") : ""].filter(part => part !== "").map(part => ". " + part).join("")
    Accessible.onPressAction: cell.tried()
    Accessible.focusable: true
    Accessible.focused: cell.isCurrent
    Accessible.selected: cell.isCurrent

    Component.onCompleted: cell.seed = cell.index
    Component.onDestruction: if (cell.dragged) cell.dragged.giveUp(cell)

    HelpText {
        target: cell
        visible: hover.hovered && !cell.dragIsOn && text !== ""
        text: cell.trouble !== "" ? cell.label + "\n" + cell.trouble : tile.captionIsCut ? cell.label : ""
    }

    HoverHandler {
        id: hover

        margin: 6
    }

    MouseArea {
        id: area

        width: cell.faceSize
        height: cell.height
        anchors.horizontalCenter: parent.horizontalCenter
        cursorShape: area.drag.active ? Qt.ClosedHandCursor : Qt.OpenHandCursor
        preventStealing: true
        drag.target: cell.dragged
        drag.threshold: 5
        drag.smoothed: false

        onPressed: mouse => {
            cell.chosen();
            cell.dragged.pressAt(area, mouse.x, mouse.y);
        }
        drag.onActiveChanged: {
            if (area.drag.active)
                cell.dragged.lift({
                    "isKey": true,
                    "payload": cell.payload,
                    "kind": cell.kind,
                    "label": cell.label,
                    "iconName": cell.iconName,
                    "iconSymbol": cell.iconSymbol,
                    "iconSource": cell.iconSource,
                    "accent": cell.accent,
                    "isMissingShortcut": cell.isMissingShortcut
                }, cell, jiggle);
        }
        onReleased: cell.dragged.drop(cell)
        onDoubleClicked: cell.tried()
        onCanceled: cell.dragged.giveUp(cell)
    }

    Item {
        id: mover

        width: cell.width
        height: cell.height
        opacity: cell.isDragged ? 0 : 1
        transform: Translate {
            id: shift
        }

        FocusRing {
            target: cell
            anchors.fill: undefined
            anchors.margins: 0
            x: (cell.width - cell.faceSize) / 2 - 4
            y: -4
            width: cell.faceSize + 8
            height: cell.faceSize + 8
            radius: 0.224 * cell.faceSize + 4
            border.color: Theme.accentVivid
            shown: cell.isCurrent
        }

        EditModeJiggleModifier {
            id: jiggle

            objectName: "wobble"
            x: (parent.width - cell.faceSize) / 2
            width: cell.faceSize
            height: cell.height
            isActive: cell.wobbles && !cell.isDragged
            seed: cell.seed
            overhang: Math.max(16, Math.ceil((cell.width - cell.faceSize) / 2))

            GlassDeckKeyView {
                id: tile

                // A label may be wider than its key.
                readonly property bool captionIsCut: labelWidth.advanceWidth > width

                x: (cell.faceSize - width) / 2
                width: cell.width - 2
                tileFaceSize: cell.faceSize
                kind: cell.kind
                label: cell.label
                iconName: cell.iconName
                iconSymbol: cell.iconSymbol
                iconSource: cell.iconSource
                accent: cell.accent
                isMissingShortcut: cell.isMissingShortcut
                isRunning: cell.isRunning
                isLaunching: cell.isLaunching
                didSucceed: cell.didSucceed
                showsLabel: cell.showsLabel
                labelColor: "white"
                labelMutedColor: Theme.increasedContrast ? "white" : "#D9FFFFFF"
                TileIsPressedKey.tileIsPressed: cell.isDropTarget || (area.pressed && !area.drag.active)
                faceOpacity: cell.isInstalled ? 1 : 0.55
                Accessible.ignored: true

                TextMetrics {
                    id: labelWidth

                    text: cell.label
                    font: Theme.fonts.uiSized(tile.captionSize, Theme.Semibold, false)
                }
            }

            HomeScreenMinusBadge {
                id: badge

                x: -9
                y: -9
                objectName: "remove"
                visible: (hover.hovered || cell.isCurrent) && !cell.dragIsOn
                focusPolicy: Qt.NoFocus
                onClicked: cell.remove()
            }
        }
    }

    ParallelAnimation {
        id: settle

        NumberAnimation {
            target: shift
            property: "x"
            to: 0
            duration: 240
            easing.type: Easing.OutBack
            easing.overshoot: 1.2
        }
        NumberAnimation {
            target: shift
            property: "y"
            to: 0
            duration: 240
            easing.type: Easing.OutBack
            easing.overshoot: 1.2
        }
    }

    NumberAnimation {
        id: pop

        target: mover
        property: "scale"
        from: 0.5
        to: 1
        duration: 240
        easing.type: Easing.OutBack
        easing.overshoot: 1.6
    }
}
