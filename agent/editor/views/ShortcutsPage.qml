// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.Editor
import Glintboard.UI

// The user's Shortcuts, in every state of their listing.
Item {
    id: page

    required property DeckEditorModel editor
    required property DraggedKey dragged
    readonly property ShortcutsLibrary shortcuts: page.editor.shortcuts
    readonly property string loadState: page.shortcuts.loadState
    readonly property alias grid: cards
    readonly property bool isQuiet: page.loadState === "loaded" || (page.loadState === "loading" && cards.count > 0)

    Column {
        id: top

        x: 6
        width: parent.width - 2 * x
        spacing: Theme.Gap8

        Item {
            id: head

            readonly property real beside: width - actions.width - Theme.Gap12
            // Large text needs two rows.
            readonly property bool fits: beside >= 140

            width: parent.width
            height: fits ? Math.max(note.height, actions.height) : note.height + Theme.Gap4 + actions.height

            Text {
                id: note

                y: head.fits ? (head.height - height) / 2 : 0
                width: head.fits ? head.beside : head.width
                text: qsTr("The first run may ask for permission on your Mac.")
                font: Theme.fonts.ui(Theme.Caption)
                color: Theme.secondaryText
                wrapMode: Text.WordWrap
            }

            Row {
                id: actions

                anchors.right: parent.right
                y: head.fits ? (head.height - height) / 2 : note.height + Theme.Gap4
                spacing: Theme.Gap8

                PillButton {
                    text: qsTr("Open Shortcuts")
                    symbolName: "arrow.up.forward.app"
                    font: Theme.fonts.ui(Theme.Footnote, Theme.Medium)
                    onClicked: page.shortcuts.open()
                }
                PillButton {
                    text: qsTr("Refresh")
                    symbolName: "arrow.clockwise"
                    font: Theme.fonts.ui(Theme.Footnote, Theme.Medium)
                    visible: page.loadState !== "failed"
                    busy: page.loadState === "loading"
                    onClicked: page.shortcuts.load()
                }
            }
        }

        SuggestedShortcut {
            width: parent.width
            visible: page.shortcuts.showsSuggested && page.editor.searchText === ""
            shortcuts: page.shortcuts
            warnings: page.editor.suggestedWarnings
        }
    }

    LibraryGrid {
        id: cards

        objectName: "grid-shortcuts"
        anchors.fill: parent
        anchors.topMargin: top.height + Theme.Gap8
        visible: page.isQuiet
        libraryName: qsTr("Shortcuts Library")
        model: page.shortcuts.cards
        dragged: page.dragged
        onAdd: payload => page.editor.addShortcut(payload)

        delegate: ShortcutCardView {}
    }

    Item {
        anchors.fill: cards

        Spinner {
            anchors.centerIn: parent
            size: 28
            running: page.loadState === "loading" && cards.count === 0
        }

        EmptyLibrary {
            anchors.centerIn: parent
            width: parent.width
            visible: page.loadState === "empty" && page.editor.searchText === ""
            symbolName: "rectangle.grid.2x2"
            title: qsTr("No Shortcuts yet")
            text: qsTr("Create one in Shortcuts, then refresh.")
        }

        EmptyLibrary {
            anchors.centerIn: parent
            width: parent.width
            visible: page.loadState === "failed"
            isError: true
            symbolName: "exclamationmark.triangle.fill"
            title: qsTr("Shortcuts could not be listed")
            text: page.shortcuts.loadMessage

            PillButton {
                objectName: "retry"
                kind: PillButton.Primary
                text: qsTr("Retry")
                onClicked: page.shortcuts.load()
            }
        }

        EmptyLibrary {
            anchors.centerIn: parent
            width: parent.width
            visible: (page.loadState === "loaded" || page.loadState === "empty") && cards.count === 0 && page.editor.searchText !== ""
            title: qsTr("No matches")
        }
    }
}
