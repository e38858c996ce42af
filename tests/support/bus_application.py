"""An application on the session bus: appends to a file what it is asked to do. NAME FILE"""

import sys

from gi.repository import Gio, GLib

NAME, LOG = sys.argv[1:]
INTERFACE = Gio.DBusNodeInfo.new_for_xml("""<node><interface name="org.freedesktop.Application">
  <method name="Activate"><arg type="a{sv}" direction="in"/></method>
  <method name="ActivateAction"><arg type="s" direction="in"/><arg type="av" direction="in"/>
    <arg type="a{sv}" direction="in"/></method></interface></node>""").interfaces[0]


def call(_bus, _sender, path, _interface, method, arguments, invocation):
    with open(LOG, "a") as log:
        log.write(f"{method} {path} {arguments.unpack()}\n")
    invocation.return_value(None)


bus = Gio.bus_get_sync(Gio.BusType.SESSION)
bus.register_object("/" + NAME.replace(".", "/").replace("-", "_"), INTERFACE, call, None, None)
Gio.bus_own_name_on_connection(bus, NAME, Gio.BusNameOwnerFlags.NONE, None, None)
GLib.MainLoop().run()
