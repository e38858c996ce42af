// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.Editor
import Glintboard.UI

// The phone, the number of its keys, and notes.
Item {
    id: pane

    required property DeckEditorModel editor
    required property DraggedKey dragged
    readonly property alias preview: phone
    readonly property bool isLow: pane.height < 640

    PhonePreviewView {
        id: phone

        objectName: "phone"
        anchors.horizontalCenter: parent.horizontalCenter
        y: Theme.Gap16
        width: implicitWidth
        height: Math.min(720, footer.y - y - Theme.Gap8)
        deckName: pane.editor.deckName
        tiles: pane.editor.tiles
        slotCount: pane.editor.slotCount
        syncLabel: pane.editor.syncLabel
        syncIsLive: pane.editor.syncIsLive
        dropTargetIndex: pane.editor.dropTargetIndex
        isDeckDragActive: pane.editor.isDeckDragActive
        dragged: pane.dragged
        showsChanges: !pane.editor.isLoading && !pane.editor.isResetting

        onDrop: (event, index) => {
            const own = event.source === pane.dragged;
            const taken = own ? pane.editor.drop([pane.dragged.payload], index) : event.hasUrls ? pane.editor.dropDesktopFile(event.urls, index) : pane.editor.drop([event.text], index);
            event.accepted = taken;
        }
        onTargeted: index => pane.editor.dropTargetIndex = index
        onRemove: index => pane.editor.remove(index)
        onMoved: (from, to) => pane.editor.move(from, to)
        onTried: index => pane.editor.tryKey(index)

        Spinner {
            anchors.centerIn: parent
            size: 28
            color: "white"
            running: pane.editor.isLoading
        }
    }

    Column {
        id: footer

        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.Gap12
        width: parent.width
        spacing: Theme.Gap4

        Item {
            id: commands

            // Large text takes two rows.
            readonly property bool fits: counter.implicitWidth + row.width + 2 * Theme.Gap24 + Theme.Gap8 <= width

            width: parent.width
            height: row.height + (fits ? 0 : counter.height + Theme.Gap4)

            Text {
                id: counter

                x: Theme.Gap24
                y: commands.fits ? (parent.height - height) / 2 : 0
                objectName: "counter"
                text: qsTr("%1 / %2").arg(pane.editor.tiles.count).arg(pane.editor.slotCount)
                font: Theme.fonts.ui(Theme.Footnote, Theme.Semibold)
                color: pane.editor.isFull ? Theme.warningText : Theme.secondaryText
                Accessible.role: Accessible.StaticText
                Accessible.name: qsTr("%1 of %n keys", "", pane.editor.slotCount).arg(pane.editor.tiles.count)
            }

            Row {
                id: row

                anchors.bottom: parent.bottom
                anchors.right: parent.right
                anchors.rightMargin: Theme.Gap24
                spacing: Theme.Gap4

                ToolButton {
                    symbolName: "arrow.counterclockwise"
                    text: qsTr("Undo")
                    keys: qsTr("Ctrl+Z")
                    enabled: pane.editor.canUndo
                    onClicked: pane.editor.undo()
                }
                ToolButton {
                    symbolName: "arrow.clockwise"
                    text: qsTr("Redo")
                    keys: qsTr("Ctrl+Shift+Z")
                    enabled: pane.editor.canRedo
                    onClicked: pane.editor.redo()
                }
                PillButton {
                    width: Math.min(implicitWidth, pane.width - 2 * 32 - 2 * Theme.Gap4 - 2 * Theme.Gap24)
                    text: qsTr("Reset to default")
                    font: Theme.fonts.ui(Theme.Footnote, Theme.Medium)
                    enabled: !pane.editor.isSaving && !pane.editor.isLoading
                    busy: pane.editor.isResetting
                    onClicked: pane.editor.reset()
                }
            }
        }

        Column {
            id: notes

            x: Theme.Gap24
            width: parent.width - 2 * x
            spacing: Theme.Gap4
            // The phone needs its room more than they do.
            visible: pane.height - commands.height - notes.implicitHeight >= 360

            Text {
                width: parent.width
                text: qsTr("Drag a card onto the iPhone, or click a card to add it. Double-click a key to try it.")
                font: Theme.fonts.ui(pane.isLow ? Theme.Caption2 : Theme.Caption)
                color: Theme.secondaryText
                wrapMode: Text.WordWrap
            }
            Text {
                width: parent.width
                //: %1 is the button "Save to iPhone"
                text: qsTr("The phone preview is live — %1 pushes it over LAN instantly").arg("<b>" + qsTr("Save to iPhone") + "</b>")
                textFormat: Text.StyledText
                font: Theme.fonts.ui(pane.isLow ? Theme.Caption2 : Theme.Caption)
                color: Theme.secondaryText
                wrapMode: Text.WordWrap
            }
        }
        Text {
            x: Theme.Gap24
            width: parent.width - 2 * x
            visible: pane.editor.selectedCategory !== "streaming"
            text: qsTr("The iPhone shows the Streaming deck only for now.")
            font: Theme.fonts.ui(pane.isLow ? Theme.Caption2 : Theme.Caption)
            color: Theme.warningText
            wrapMode: Text.WordWrap
        }
    }
}
