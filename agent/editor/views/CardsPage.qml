// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.Editor
import Glintboard.UI

// A library that is always there: applications or actions.
Item {
    id: page

    required property DeckEditorModel editor
    required property DraggedKey dragged
    required property string libraryName
    required property DeckLibraryModel cards
    required property Component card
    // The cards are made when they are first looked at.
    property bool wasShown: page.visible
    property bool isLoading: false
    readonly property alias grid: view

    onVisibleChanged: if (page.visible) page.wasShown = true

    LibraryGrid {
        id: view

        anchors.fill: parent
        libraryName: page.libraryName
        model: page.wasShown ? page.cards : null
        dragged: page.dragged
        delegate: page.card
        onAdd: payload => page.editor.add(payload)
    }

    Spinner {
        anchors.centerIn: parent
        size: 28
        running: page.isLoading
    }

    EmptyLibrary {
        anchors.centerIn: parent
        width: parent.width
        visible: !page.isLoading && view.count === 0
        symbolName: page.editor.searchText === "" ? "rectangle.grid.2x2" : ""
        title: page.editor.searchText === "" ? qsTr("No applications found") : qsTr("No matches")
    }
}
