# SPDX-License-Identifier: MIT
"""Unlocks the default collection of a private keyring, whose password is the line "secret"."""

from gi.repository import Gio, GLib

SERVICE = "/org/freedesktop/secrets"
bus = Gio.bus_get_sync(Gio.BusType.SESSION)


def call(interface, method, arguments):
    return bus.call_sync("org.freedesktop.secrets", SERVICE, interface, method, arguments, None,
                         Gio.DBusCallFlags.NONE, -1, None)


_, session = call("org.freedesktop.Secret.Service", "OpenSession",
                  GLib.Variant("(sv)", ("plain", GLib.Variant("s", ""))))
call("org.gnome.keyring.InternalUnsupportedGuiltRiddenInterface", "UnlockWithMasterPassword",
     GLib.Variant("(o(oayays))",
                  (SERVICE + "/aliases/default", (session, b"", b"secret\n", "text/plain"))))
print("done")
