// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Window
import Glintboard.UI
import Glintboard.Agent

// The agent's menu: how to pair or who is paired, what is wrong if something is, and the commands.
MenuPanel {
    id: view

    required property MenuBarModel menu
    // A panel of its own, or the content of an ordinary window.
    property bool popover: true
    // The desktop shows what lies behind the window.
    property bool translucent: true
    readonly property real padding: Theme.Gap16

    margin: view.popover && view.translucent ? Theme.Gap32 : 0
    shownHeight: Math.ceil(Math.min(items.implicitHeight + 2 * view.padding + 2 * view.margin, view.maximumHeight))
    implicitWidth: items.width + 2 * view.padding + 2 * view.margin
    implicitHeight: view.shownHeight
    focus: true

    Behavior on shownHeight {
        enabled: view.settled && Theme.moveTime > 0

        NumberAnimation {
            duration: Theme.moveTime
            easing.type: Easing.OutCubic
        }
    }

    Shortcut {
        sequence: "Ctrl+Q"
        onActivated: view.menu.press(Menu.Quit)
    }
    Shortcut {
        sequence: "Escape"
        enabled: view.popover
        onActivated: view.closeRequested()
    }

    Keys.onUpPressed: view.moveFocus(false)
    Keys.onDownPressed: view.moveFocus(true)

    function moveFocus(forward: bool) {
        const next = view.Window.activeFocusItem?.nextItemInFocusChain(forward);
        next?.forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason);
    }

    MouseArea {
        anchors.fill: parent
        enabled: view.margin > 0
        onPressed: view.closeRequested()
    }

    SoftShadow {
        anchors.fill: panel
        anchors.margins: -blur
        anchors.topMargin: fall - blur
        anchors.bottomMargin: -fall - blur
        visible: view.margin > 0
        radius: Theme.PanelRadius
        blur: Theme.Gap24
        fall: 8
        color: Theme.shadow
    }

    PanelBackground {
        id: panel

        readonly property real solidity: view.translucent && view.popover && !Theme.increasedContrast ? 0.95 : 1

        x: view.margin
        y: view.margin
        width: view.width - 2 * view.margin
        height: (view.popover ? view.shownHeight : view.height) - 2 * view.margin
        radius: view.margin > 0 ? Theme.PanelRadius : 0
        topColor: Theme.faded(Theme.windowTop, panel.solidity)
        bottomColor: Theme.faded(Theme.windowBottom, panel.solidity)
        strokeColor: view.popover ? Theme.stroke : "transparent"

        MouseArea {
            anchors.fill: parent
        }

        Flickable {
            id: scroll

            anchors.fill: parent
            contentWidth: width
            contentHeight: items.implicitHeight + 2 * view.padding
            interactive: contentHeight > view.maximumHeight - 2 * view.margin
            boundsBehavior: Flickable.StopAtBounds
            clip: true

            readonly property Item focused: view.Window.activeFocusItem

            onFocusedChanged: {
                if (!scroll.interactive || !scroll.focused || scroll.focused === view)
                    return;
                const top = scroll.focused.mapToItem(scroll.contentItem, 0, 0).y - view.padding;
                const bottom = top + scroll.focused.height + 2 * view.padding;
                scroll.contentY = Math.max(0, Math.min(top, Math.max(scroll.contentY, bottom - scroll.height)));
            }

            MenuItems {
                id: items

                x: Math.max(view.padding, Math.floor((scroll.width - width) / 2))
                y: view.padding
                width: 300
                menu: view.menu
                settled: view.settled
            }
        }
    }
}
