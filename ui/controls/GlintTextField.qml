// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import QtQuick.Window
import Glintboard.UI

// A text field of one line: a search field with a symbol, or a name that is edited in place.
T.TextField {
    id: control

    // In front of the text; "magnifyingglass" for a search.
    property string symbolName: ""
    // Shows its frame only while it is hovered or has the focus.
    property bool inPlace: false
    // The name for screen readers, the placeholder by default.
    property string accessibleName: control.placeholderText

    implicitWidth: Math.max(contentWidth + leftPadding + rightPadding, placeholder.implicitWidth + leftPadding + rightPadding, 120)
    implicitHeight: Math.max(contentHeight + topPadding + bottomPadding, 32)
    leftPadding: (control.symbolName !== "" ? Theme.symbolSize + Theme.Gap8 : 0) + Theme.Gap12
    rightPadding: Theme.Gap12 + (clear.visible ? clear.width : 0)
    topPadding: Theme.Gap4
    bottomPadding: Theme.Gap4
    verticalAlignment: TextInput.AlignVCenter
    font: Theme.fonts.uiSized(14)
    color: Theme.text
    placeholderTextColor: Theme.secondaryText
    selectionColor: Theme.accent
    selectedTextColor: Theme.onAccent
    selectByMouse: true
    hoverEnabled: true

    Accessible.role: Accessible.EditableText
    Accessible.name: control.accessibleName

    Keys.onEscapePressed: event => {
        if (control.symbolName === "magnifyingglass" && control.text !== "")
            control.clear();
        else
            event.accepted = false;
    }

    background: Rectangle {
        radius: Theme.FieldRadius
        color: control.inPlace && !control.activeFocus ? (control.hovered ? Theme.hover : "transparent") : Theme.surface
        border.width: control.activeFocus ? 2 : 1 / Screen.devicePixelRatio
        border.color: control.activeFocus ? Theme.accent : control.inPlace ? "transparent" : Theme.stroke

        Symbol {
            x: Theme.Gap12
            anchors.verticalCenter: parent.verticalCenter
            visible: control.symbolName !== ""
            name: control.symbolName
            color: Theme.secondaryText
            size: Theme.symbolSize
        }
    }

    Text {
        id: placeholder

        x: control.leftPadding
        width: control.width - control.leftPadding - control.rightPadding
        height: control.height
        visible: control.text === "" && control.preeditText === ""
        text: control.placeholderText
        font: control.font
        color: control.placeholderTextColor
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        Accessible.ignored: true
    }

    T.Button {
        id: clear

        anchors.right: parent.right
        width: 28
        height: parent.height
        visible: control.symbolName === "magnifyingglass" && control.text !== ""
        focusPolicy: Qt.NoFocus
        onClicked: control.clear()

        Accessible.role: Accessible.Button
        Accessible.name: qsTr("Clear the search")

        contentItem: Item {
            Symbol {
                anchors.centerIn: parent
                name: "xmark"
                color: Theme.secondaryText
                size: 12
            }
        }
    }
}
