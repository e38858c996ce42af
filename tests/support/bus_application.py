# SPDX-License-Identifier: MIT
"""An application, or a keyring's prompter, on the session bus: logs the calls it receives.

bus_application.py NAME FILE [PATH]      appends it to FILE
"""

import sys

from gi.repository import Gio, GLib

NAME, LOG, *PLACE = sys.argv[1:]
PATH = PLACE[0] if PLACE else "/" + NAME.replace(".", "/").replace("-", "_")
NODE = Gio.DBusNodeInfo.new_for_xml("""<node><interface name="org.freedesktop.Application">
  <method name="Activate"><arg type="a{sv}" direction="in"/></method>
  <method name="ActivateAction"><arg type="s" direction="in"/><arg type="av" direction="in"/>
    <arg type="a{sv}" direction="in"/></method></interface>
  <interface name="org.gnome.keyring.internal.Prompter">
  <method name="BeginPrompting"><arg type="o" direction="in"/></method>
  <method name="PerformPrompt"><arg type="o" direction="in"/><arg type="s" direction="in"/>
    <arg type="a{sv}" direction="in"/><arg type="s" direction="in"/></method>
  <method name="StopPrompting"><arg type="o" direction="in"/></method></interface></node>""")


def call(_bus, _sender, path, _interface, method, arguments, invocation):
    with open(LOG, "a") as log:
        log.write(f"{method} {path} {arguments.unpack()}\n")
    invocation.return_value(None)


bus = Gio.bus_get_sync(Gio.BusType.SESSION)
for interface in NODE.interfaces:
    bus.register_object(PATH, interface, call, None, None)
Gio.bus_own_name_on_connection(bus, NAME, Gio.BusNameOwnerFlags.NONE, None, None)
GLib.MainLoop().run()
