// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.Editor
import Glintboard.UI

// The libraries: tabs, search field and cards, and below them the editor's messages.
Item {
    id: pane

    required property DeckEditorModel editor
    required property DraggedKey dragged
    readonly property alias searchField: search

    function focusCards(): void {
        const page = pages.current;
        if (page)
            page.grid.forceActiveFocus(Qt.TabFocusReason);
    }

    LibraryTabs {
        id: tabs

        x: Theme.Gap24
        y: Theme.Gap16
        maximumWidth: parent.width - 2 * x
        editor: pane.editor
    }

    GlintTextField {
        id: search

        objectName: "search"
        x: Theme.Gap24
        y: tabs.y + tabs.height + Theme.Gap12
        width: parent.width - x - Theme.Gap24
        height: Math.max(implicitHeight, 36)
        symbolName: "magnifyingglass"
        placeholderText: pane.editor.libraryTabs[tabs.current].searchPlaceholder
        text: pane.editor.searchText
        onTextChanged: pane.editor.searchText = text
        Keys.onDownPressed: pane.focusCards()
        onAccepted: pane.focusCards()
    }

    Item {
        id: pages

        readonly property var current: [apps, actions, shortcuts][tabs.current]

        // The cards have a margin of six pixels.
        x: Theme.Gap24 - 6
        y: search.y + search.height + Theme.Gap8
        width: parent.width - 2 * x
        height: parent.height - y - below.height

        CardsPage {
            id: apps

            objectName: "page-apps"
            anchors.fill: parent
            visible: tabs.current === 0
            editor: pane.editor
            dragged: pane.dragged
            libraryName: qsTr("App Library")
            cards: pane.editor.apps.cards
            isLoading: !pane.editor.apps.isLoaded
            card: AppCardView {}
        }

        CardsPage {
            id: actions

            objectName: "page-actions"
            anchors.fill: parent
            visible: tabs.current === 1
            editor: pane.editor
            dragged: pane.dragged
            libraryName: qsTr("Action Library")
            cards: pane.editor.actionCards
            card: ActionCardView {}
        }

        ShortcutsPage {
            id: shortcuts

            objectName: "page-shortcuts"
            anchors.fill: parent
            visible: tabs.current === 2
            editor: pane.editor
            dragged: pane.dragged
        }
    }

    Column {
        id: below

        x: Theme.Gap24
        width: parent.width - 2 * x
        anchors.bottom: parent.bottom
        // Without messages the cards reach the window's edge.
        topPadding: Math.min(Theme.Gap8, below.content)
        bottomPadding: Math.min(Theme.Gap12, below.content)

        readonly property real content: tip.height + error.height + info.height

        FirstShortcutTip {
            id: tip

            objectName: "tip"
            width: parent.width
            editor: pane.editor
        }
        MessageLine {
            id: error

            objectName: "error"
            width: parent.width
            isError: true
            message: pane.editor.errorMessage
        }
        MessageLine {
            id: info

            objectName: "info"
            width: parent.width
            message: pane.editor.infoMessage
        }
    }
}
