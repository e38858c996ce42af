// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import QtQuick.Window
import Glintboard.Editor
import Glintboard.UI

// Selects one of the libraries.
Rectangle {
    id: tabs

    required property DeckEditorModel editor
    readonly property var all: tabs.editor.libraryTabs
    property real maximumWidth: Infinity
    // The width of the tabs in one line. If that is too wide, they share the width and wrap.
    readonly property real naturalWidth: tabs.folded("naturalWidth", (a, b) => a + b)
    readonly property bool isTight: tabs.naturalWidth + 2 * row.x > tabs.maximumWidth
    readonly property real tabHeight: tabs.folded("implicitHeight", Math.max)
    readonly property int current: tabs.all.findIndex(tab => tab.id === tabs.editor.libraryTab)

    // Folds the tabs' values of the property `size`.
    function folded(size: string, fold: var): real {
        let result = 0;
        for (let i = 0; i < repeater.count; ++i)
            result = fold(result, repeater.itemAt(i)?.[size] ?? 0);
        return result;
    }
    function choose(index: int): void {
        if (index >= 0 && index < tabs.all.length) {
            tabs.editor.libraryTab = tabs.all[index].id;
            const button = repeater.itemAt(index);
            if (button)
                button.forceActiveFocus(Qt.TabFocusReason);
        }
    }

    implicitWidth: row.implicitWidth + 2 * row.x
    implicitHeight: row.implicitHeight + 2 * row.y
    radius: height / 2
    color: Theme.hover

    Accessible.role: Accessible.PageTabList
    Accessible.name: qsTr("Libraries")

    Rectangle {
        readonly property Item button: repeater.count > tabs.current && tabs.current >= 0 ? repeater.itemAt(tabs.current) : null

        x: row.x + (button ? button.x : 0)
        y: row.y
        width: button ? button.width : 0
        height: row.height
        radius: height / 2
        color: Theme.dark ? Theme.faded(Theme.text, 0.14) : "white"
        border.width: 1 / Screen.devicePixelRatio
        border.color: Theme.stroke

        Behavior on x {
            NumberAnimation {
                duration: Theme.moveTime
                easing.type: Easing.OutCubic
            }
        }
        Behavior on width {
            NumberAnimation {
                duration: Theme.moveTime
                easing.type: Easing.OutCubic
            }
        }
    }

    Row {
        id: row

        x: 3
        y: 3

        Repeater {
            id: repeater

            model: tabs.all

            // The delegate reads ids of this file, which Qt 6.4 has no way to declare.
            // qmllint disable unqualified
            T.TabButton {
                id: button

                required property var modelData
                required property int index

                readonly property real naturalWidth: Math.ceil(metrics.advanceWidth) + 2 * Theme.Gap16

                objectName: "tab-" + button.modelData.id
                text: button.modelData.title
                checked: tabs.current === button.index
                checkable: false
                focusPolicy: button.checked ? Qt.StrongFocus : Qt.ClickFocus
                hoverEnabled: true
                horizontalPadding: tabs.isTight ? Theme.Gap4 : Theme.Gap16
                verticalPadding: 6
                width: tabs.isTight ? Math.floor((tabs.maximumWidth - 2 * row.x) / repeater.count) : button.naturalWidth
                height: tabs.tabHeight
                implicitHeight: implicitContentHeight + topPadding + bottomPadding

                TextMetrics {
                    id: metrics

                    text: button.text
                    font: Theme.fonts.uiSized(14, Theme.Semibold)
                }

                Accessible.role: Accessible.PageTab
                Accessible.name: button.text
                Accessible.checked: button.checked

                onClicked: tabs.editor.libraryTab = button.modelData.id
                Keys.onLeftPressed: tabs.choose(button.index - 1)
                Keys.onRightPressed: tabs.choose(button.index + 1)

                contentItem: Text {
                    text: button.text
                    font: Theme.fonts.uiSized(14, Theme.Semibold)
                    color: button.checked ? Theme.text : Theme.secondaryText
                    wrapMode: Text.Wrap
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                }

                background: Rectangle {
                    radius: height / 2
                    color: button.hovered && !button.checked ? Theme.hover : "transparent"

                    FocusRing {
                        target: button
                        anchors.margins: 0
                        radius: parent.radius
                    }
                }
            }
            // qmllint enable unqualified
        }
    }
}
