# SPDX-License-Identifier: MIT
"""A StatusNotifierWatcher that prints the items that register.

With the argument "late" it replies to them on SIGUSR1.
"""

import signal
import sys

from gi.repository import Gio, GLib

NAME = "org.kde.StatusNotifierWatcher"
INTERFACE = Gio.DBusNodeInfo.new_for_xml(f"""<node><interface name="{NAME}">
  <method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
  <property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
</interface></node>""").interfaces[0]


def register(_bus, _sender, _path, _interface, _method, arguments, invocation):
    print(arguments[0], flush=True)
    waiting.append(invocation)
    if "late" not in sys.argv:
        answer()


def answer():
    while waiting:
        waiting.pop().return_value(None)
    return GLib.SOURCE_CONTINUE


waiting = []
GLib.unix_signal_add(GLib.PRIORITY_DEFAULT, signal.SIGUSR1, answer)

bus = Gio.bus_get_sync(Gio.BusType.SESSION)
bus.register_object("/StatusNotifierWatcher", INTERFACE, register,
                    lambda *_: GLib.Variant("b", True), None)
Gio.bus_own_name_on_connection(bus, NAME, Gio.BusNameOwnerFlags.NONE, None, None)
GLib.MainLoop().run()
