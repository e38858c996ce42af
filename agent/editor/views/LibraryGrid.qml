// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Glintboard.Editor
import Glintboard.UI

// The cards of a library. The arrow keys select a card, Enter or Space adds it.
GridView {
    id: grid

    required property DraggedKey dragged
    required property string libraryName
    readonly property real cardWidth: 140 * Math.min(1.3, Theme.textScale)
    readonly property int columns: Math.max(1, Math.floor(grid.width / (grid.cardWidth + Theme.Gap12)))
    // A LibraryCard, or null.
    readonly property var current: grid.currentItem
    property bool byKeyboard: false

    signal add(string payload)

    function addCurrent(): void {
        if (grid.current)
            grid.current.add();
    }

    cellWidth: Math.floor(grid.width / grid.columns)
    cellHeight: 96 * Math.max(1, Math.min(1.4, Theme.textScale)) + Theme.Gap12
    clip: true
    reuseItems: true
    cacheBuffer: 220
    bottomMargin: Theme.Gap12
    boundsBehavior: Flickable.StopAtBounds
    activeFocusOnTab: true
    keyNavigationEnabled: true
    currentIndex: 0
    highlightFollowsCurrentItem: true
    highlightMoveDuration: Theme.moveTime

    onActiveFocusChanged: grid.byKeyboard = grid.activeFocus
    Keys.onPressed: event => {
        grid.byKeyboard = true;
        switch (event.key) {
        case Qt.Key_Return:
        case Qt.Key_Enter:
        case Qt.Key_Space:
            if (!event.isAutoRepeat)
                grid.addCurrent();
            break;
        case Qt.Key_Home:
            grid.currentIndex = 0;
            break;
        case Qt.Key_End:
            grid.currentIndex = grid.count - 1;
            break;
        case Qt.Key_PageDown:
            grid.currentIndex = Math.min(grid.count - 1, grid.currentIndex + grid.columns * Math.max(1, Math.floor(grid.height / grid.cellHeight)));
            break;
        case Qt.Key_PageUp:
            grid.currentIndex = Math.max(0, grid.currentIndex - grid.columns * Math.max(1, Math.floor(grid.height / grid.cellHeight)));
            break;
        default:
            return;
        }
        event.accepted = true;
    }

    Accessible.role: Accessible.List
    Accessible.name: grid.libraryName

    // The margin shows that more cards follow. The keyboard's current card is visible in full.
    Rectangle {
        parent: grid
        z: 1
        width: grid.width
        height: 24
        anchors.bottom: grid.bottom
        visible: opacity > 0 && !(grid.activeFocus && grid.byKeyboard)
        opacity: Math.max(0, Math.min(1, (grid.originY + grid.contentHeight + grid.bottomMargin - grid.contentY - grid.height) / height))
        gradient: Gradient {
            GradientStop {
                position: 0
                color: Theme.faded(Theme.windowBottom, 0)
            }
            GradientStop {
                position: 1
                color: Theme.windowBottom
            }
        }
    }

    // The scroll bar is beside the cards.
    T.ScrollBar.vertical: EditorScrollBar {
        parent: grid.parent
        x: grid.x + grid.width
        y: grid.y
        height: grid.height
    }
}
