// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.Editor
import Glintboard.UI

// The phone with the deck's keys. Keys are dragged onto it and within it. On the keyboard the
// arrows select a key, Ctrl with an arrow moves it, Delete removes it and Enter tries it.
FocusScope {
    id: preview

    required property string deckName
    required property DeckTilesModel tiles
    required property int slotCount
    required property string syncLabel
    required property bool syncIsLive
    // The slot under a drag, or -1.
    required property int dropTargetIndex
    required property DraggedKey dragged
    // Whether changes of the keys are animated.
    property bool showsChanges: true
    required property bool isDeckDragActive

    readonly property int columns: 4
    readonly property int rows: Math.ceil(preview.slotCount / preview.columns)
    readonly property int keyCount: preview.tiles.count
    readonly property bool isFull: preview.keyCount >= preview.slotCount
    property int currentIndex: 0
    // The focus ring shows after keyboard input only.
    property bool byKeyboard: false

    // During a drag: the index of the dragged key, and the slot it will land in; -1 without one.
    property int away: -1
    readonly property bool takesNew: preview.away < 0 && !preview.isFull
    readonly property int landing: {
        if (preview.dropTargetIndex < 0)
            return -1;
        if (preview.away >= 0)
            return Math.min(preview.dropTargetIndex, preview.keyCount - 1);
        return preview.isFull ? -1 : Math.min(preview.dropTargetIndex, preview.keyCount);
    }

    readonly property real captionHeight: 17
    readonly property real rowGap: Math.max(4, Math.min(14, (grid.height / preview.rows - preview.captionHeight) * 0.12))
    readonly property real cellHeight: grid.height / preview.rows
    readonly property real faceSize: Math.floor(Math.min(64, preview.cellHeight - preview.captionHeight - preview.rowGap))
    readonly property real cellWidth: Math.round(Math.max(preview.faceSize * 1.3, 58))

    signal drop(var event, int index)
    signal targeted(int index)
    signal remove(int index)
    signal moved(int from, int to)
    signal tried(int index)

    function positionOf(index: int): int {
        if (preview.landing < 0)
            return index;
        if (index === preview.away)
            return preview.landing;
        const rest = preview.away >= 0 && index > preview.away ? index - 1 : index;
        return rest >= preview.landing ? rest + 1 : rest;
    }
    function slotAt(x: real, y: real): int {
        const column = Math.max(0, Math.min(preview.columns - 1, Math.floor(x / preview.cellWidth)));
        const row = Math.max(0, Math.min(preview.rows - 1, Math.floor(y / preview.cellHeight)));
        return Math.min(row * preview.columns + column, preview.slotCount - 1);
    }
    function cellOf(payload: string): FilledKeyCell {
        for (let i = 0; i < keys.count; ++i) {
            const cell = keys.itemAt(i) as FilledKeyCell;
            if (cell && cell.payload === payload)
                return cell;
        }
        return null;
    }
    function choose(index: int): void {
        preview.byKeyboard = true;
        preview.currentIndex = Math.max(0, Math.min(preview.keyCount - 1, index));
    }
    function step(by: int, moves: bool): void {
        const to = preview.currentIndex + by;
        if (to < 0 || to >= preview.keyCount)
            return;
        if (moves)
            preview.moved(preview.currentIndex, to);
        preview.choose(to);
    }

    implicitWidth: 4 * preview.cellWidth + 2 * bezel.frame + 2 * Theme.Gap8
    activeFocusOnTab: true
    onActiveFocusChanged: preview.byKeyboard = preview.activeFocus && !press.pressed
    onKeyCountChanged: preview.currentIndex = Math.max(0, Math.min(preview.currentIndex, preview.keyCount - 1))

    Accessible.role: Accessible.List
    Accessible.name: qsTr("Keys on the iPhone")
    Accessible.description: preview.syncLabel

    Keys.onPressed: event => {
        const moves = (event.modifiers & Qt.ControlModifier) !== 0;
        switch (event.key) {
        case Qt.Key_Left:
            preview.step(-1, moves);
            break;
        case Qt.Key_Right:
            preview.step(1, moves);
            break;
        case Qt.Key_Up:
            preview.step(-preview.columns, moves);
            break;
        case Qt.Key_Down:
            preview.step(preview.columns, moves);
            break;
        case Qt.Key_Home:
            preview.choose(0);
            break;
        case Qt.Key_End:
            preview.choose(preview.keyCount - 1);
            break;
        case Qt.Key_Return:
        case Qt.Key_Enter:
            if (preview.keyCount > 0 && !event.isAutoRepeat)
                preview.tried(preview.currentIndex);
            preview.byKeyboard = true;
            break;
        case Qt.Key_Delete:
        case Qt.Key_Backspace:
            if (preview.keyCount > 0)
                preview.remove(preview.currentIndex);
            preview.byKeyboard = true;
            break;
        default:
            return;
        }
        event.accepted = true;
    }

    PhoneBezel {
        id: bezel

        anchors.fill: parent
        glows: preview.isDeckDragActive && preview.landing >= 0
        islandIsLive: preview.syncIsLive

        TapHandler {
            id: press

            onPressedChanged: if (pressed) preview.forceActiveFocus(Qt.MouseFocusReason)
        }
        HoverHandler {
            id: hover
        }

        Text {
            id: title

            x: Theme.Gap16
            y: 38
            width: parent.width - 2 * x
            text: preview.deckName
            font.family: Theme.fonts.hero(Theme.Title3).family
            font.styleName: Theme.fonts.hero(Theme.Title3).styleName
            font.pixelSize: 20
            color: "white"
            horizontalAlignment: Text.AlignHCenter
            elide: Text.ElideRight
            textFormat: Text.PlainText
        }

        Item {
            id: grid

            objectName: "keys"
            anchors.top: title.bottom
            anchors.topMargin: Theme.Gap12
            anchors.bottom: parent.bottom
            anchors.bottomMargin: Theme.Gap12
            anchors.horizontalCenter: parent.horizontalCenter
            width: preview.columns * preview.cellWidth

            Repeater {
                model: preview.slotCount

                // The delegates read ids of this file, which Qt 6.4 has no way to declare.
                // qmllint disable unqualified
                EmptyKeyView {
                    required property int index

                    x: (index % preview.columns) * preview.cellWidth + (preview.cellWidth - preview.faceSize) / 2
                    y: Math.floor(index / preview.columns) * preview.cellHeight
                    width: preview.faceSize
                    height: preview.faceSize
                    cornerRadius: 0.224 * preview.faceSize
                    visible: index >= preview.keyCount || (preview.landing >= 0 && index === preview.landing)
                    dragIsOn: preview.isDeckDragActive && !(preview.isFull && preview.away < 0)
                    isDropTarget: index === preview.dropTargetIndex
                }
                // qmllint enable unqualified
            }

            // Highlights the slot that the key will land in.
            SoftShadow {
                visible: preview.landing >= 0
                x: (preview.landing % preview.columns) * preview.cellWidth + (preview.cellWidth - preview.faceSize) / 2 - blur
                y: Math.floor(preview.landing / preview.columns) * preview.cellHeight - blur
                width: preview.faceSize + 2 * blur
                height: preview.faceSize + 2 * blur
                radius: 0.224 * preview.faceSize
                blur: 14
                color: Theme.accentGlow(0.7)

                Rectangle {
                    anchors.fill: parent
                    anchors.margins: 14
                    radius: 0.224 * preview.faceSize
                    color: Theme.accentGlow(0.35)
                    border.width: 1.5
                    border.color: Theme.accentVivid
                }
            }

            Text {
                anchors.centerIn: parent
                width: parent.width
                visible: preview.keyCount === 0 && !preview.isDeckDragActive && preview.showsChanges
                text: Theme.teachingCaption
                font: Theme.fonts.handCaption(Theme.Title2)
                color: Theme.accentPale
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.WordWrap
            }

            Repeater {
                id: keys

                model: preview.tiles

                // qmllint disable unqualified
                FilledKeyCell {
                    id: cell

                    readonly property int position: preview.positionOf(cell.index)
                    property real column: cell.position % preview.columns
                    property real row: Math.floor(cell.position / preview.columns)

                    x: cell.column * preview.cellWidth
                    y: cell.row * preview.cellHeight
                    z: cell.isDragged ? 1 : 0
                    width: preview.cellWidth
                    height: preview.faceSize + preview.captionHeight
                    faceSize: preview.faceSize
                    keyCount: preview.keyCount
                    dragged: preview.dragged
                    dragIsOn: preview.dragged.lifted || preview.isDeckDragActive
                    isDropTarget: cell.index === preview.dropTargetIndex
                    isCurrent: preview.activeFocus && preview.byKeyboard && cell.index === preview.currentIndex
                    wobbles: hover.hovered || preview.isDeckDragActive || (preview.activeFocus && preview.byKeyboard)

                    Component.onCompleted: if (preview.showsChanges && !preview.isDeckDragActive) cell.appear()

                    onRemove: preview.remove(cell.index)
                    onTried: preview.tried(cell.index)
                    onChosen: {
                        preview.forceActiveFocus(Qt.MouseFocusReason);
                        preview.currentIndex = cell.index;
                        preview.byKeyboard = false;
                    }

                    Behavior on column {
                        enabled: preview.showsChanges

                        NumberAnimation {
                            duration: Theme.partTime
                            easing.type: Easing.OutCubic
                        }
                    }
                    Behavior on row {
                        enabled: preview.showsChanges

                        NumberAnimation {
                            duration: Theme.partTime
                            easing.type: Easing.OutCubic
                        }
                    }
                }
                // qmllint enable unqualified
            }
        }
    }

    DropArea {
        id: target

        function follow(drag: var): void {
            const point = grid.mapFromItem(target, drag.x, drag.y);
            preview.targeted(preview.slotAt(point.x, point.y));
        }
        function leave(): void {
            preview.dragged.overPhone = false;
            preview.targeted(-1);
            preview.away = -1;
        }

        anchors.fill: parent

        onEntered: drag => {
            const own = drag.source === preview.dragged;
            if (!own && !drag.hasUrls && !drag.hasText) {
                drag.accepted = false;
                return;
            }
            const cell = own ? preview.cellOf(preview.dragged.payload) : null;
            preview.away = cell ? cell.index : -1;
            preview.dragged.overPhone = own;
            preview.dragged.welcome = preview.away >= 0 || !preview.isFull;
            target.follow(drag);
        }
        onPositionChanged: drag => target.follow(drag)
        onExited: target.leave()
        onDropped: drop => {
            const payload = preview.dragged.payload;
            const own = drop.source === preview.dragged;
            const corner = grid.mapFromItem(target, drop.x - preview.faceSize / 2, drop.y - preview.faceSize / 2);
            const point = grid.mapFromItem(target, drop.x, drop.y);
            preview.drop(drop, preview.slotAt(point.x, point.y));
            target.leave();
            const cell = drop.accepted && own ? preview.cellOf(payload) : null;
            if (cell)
                cell.settleFrom(corner.x - (preview.cellWidth - preview.faceSize) / 2, corner.y);
        }
    }
}
