# SPDX-License-Identifier: MIT
"""A settings portal: dark with large text at first, light with reduced motion after Change.

settings_portal.py [FILE]      the icon theme is the content of FILE
"""

import sys

from gi.repository import Gio, GLib

INTERFACE = Gio.DBusNodeInfo.new_for_xml("""<node>
  <interface name="org.freedesktop.portal.Settings">
    <method name="ReadAll">
      <arg type="as" direction="in"/><arg type="a{sa{sv}}" direction="out"/></method>
    <method name="Read"><arg type="s" direction="in"/><arg type="s" direction="in"/>
      <arg type="v" direction="out"/></method>
    <method name="Change"/>
    <signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
  </interface></node>""").interfaces[0]
PATH = "/org/freedesktop/portal/desktop"
BEFORE = {"org.freedesktop.appearance": {"color-scheme": GLib.Variant("u", 1)},
          "org.gnome.desktop.interface": {"text-scaling-factor": GLib.Variant("d", 1.5),
                                          "enable-animations": GLib.Variant("b", True)}}
AFTER = (("org.freedesktop.appearance", "color-scheme", GLib.Variant("u", 2)),
         ("org.freedesktop.appearance", "contrast", GLib.Variant("u", 1)),
         ("org.gnome.desktop.interface", "enable-animations", GLib.Variant("b", False)))


def call(connection, _sender, _path, interface, method, arguments, invocation):
    if method == "Read":
        known = arguments.unpack() == ("org.gnome.desktop.interface", "icon-theme")
        theme = GLib.Variant("s", open(sys.argv[1]).read() if known else "")
        invocation.return_value(GLib.Variant("(v)", (GLib.Variant("v", theme),)))
        return
    if method == "ReadAll":
        invocation.return_value(GLib.Variant("(a{sa{sv}})", (BEFORE,)))
        return
    for change in AFTER:
        connection.emit_signal(None, PATH, interface, "SettingChanged",
                               GLib.Variant("(ssv)", change))
    invocation.return_value(None)


bus = Gio.bus_get_sync(Gio.BusType.SESSION)
bus.register_object(PATH, INTERFACE, call, None, None)
Gio.bus_own_name_on_connection(bus, "org.freedesktop.portal.Desktop",
                               Gio.BusNameOwnerFlags.NONE, None, None)
GLib.MainLoop().run()
