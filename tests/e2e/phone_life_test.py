"""What a phone goes through: it pairs, fetches decks and icons, and uses every kind of key."""

import hashlib
import pathlib
import unittest

from client import Client
from desktop import DesktopTest, action, app, eventually, png, shortcut

TEA, GONE, REFUSED, BROKEN = (f"{digit * 8}-0000-4000-8000-000000000000" for digit in "1234")


class PhoneLife(DesktopTest):
    def test_five_wrong_pins_lock_pin_pairing_until_a_qr_code_pairs(self):
        agent = self.start_agent()
        phone = self.phone("Sam\x1b[31m's phone")
        pin = agent.pin()
        wrong = [f"{(int(pin) + step) % 10**6:06}" for step in range(1, 4)]
        self.assertEqual([phone.outcome("pair", each) for each in wrong], ["invalid_pin"] * 3)
        for malformed, reason in (pin[:5], "invalid_pin"), (pin + "0", "lockout"):
            answer = phone.raw("pair.request", {"method": "pin", "secret": malformed,
                                                "deviceName": "Sam", "deviceId": TEA})
            self.assertEqual(answer["payload"]["reason"], reason)
        qr = agent.qr()
        self.assertEqual(phone.outcome("pair", pin), "lockout")
        agent.menu_shows("Pairing locked \u2014 too many failed attempts")
        self.assertNotIn(pin, agent.menu())
        self.assertEqual(phone.outcome("pair", qr[:-1] + ("A" if qr[-1] != "A" else "B")),
                         "invalid_code")
        self.assertEqual(phone.outcome("pair", qr, "--name", phone.name), "ok")
        self.assertEqual(phone.outcome("decks"), "ok")
        agent.menu_shows("Sam[31m's phone", "Waiting for iPhone")
        self.assertEqual(phone.outcome("pair", qr), "invalid_code", "no secret serves twice")
        self.assertEqual(phone.outcome("pair", pin), "invalid_pin", "the lockout is over")
        self.assertEqual(phone.outcome("pair", agent.show_code()), "ok")

    def test_decks_hold_what_is_installed_with_revisions_of_icons(self):
        icon = self.desktop.write(self.desktop.root / "editor.png", png((200, 0, 0)))
        self.desktop.install("org.example.Editor", Icon=icon)
        self.desktop.write(
            self.desktop.data / "icons/hicolor/index.theme", "[Icon Theme]\nName=Hicolor\n"
            "Directories=scalable/apps\n[scalable/apps]\nSize=64\nType=Scalable\n")
        self.desktop.write(
            self.desktop.data / "icons/hicolor/scalable/apps/player.svg",
            '<svg xmlns="http://www.w3.org/2000/svg" width="9" height="9"><text y="9">P</text>'
            '<rect width="4" height="9" fill="blue"/></svg>')
        self.desktop.install("org.example.Player", Icon="player")
        self.desktop.set_decks(
            [app("org.example.Absent"), app("org.example.Editor"), action("up"),
             app("org.example.Old", alternateBundleIds=["org.example.Player"])],
            [shortcut(TEA), app("org.example.Editor")])
        phone = self.paired_phone(self.start_agent())
        streaming, gaming = phone.decks()
        keys = lambda deck: [(tile["slot"], tile["id"]) for tile in deck["tiles"]]
        self.assertEqual(keys(streaming), [(2, "org.example.Editor"), (3, "system.volume.up"),
                                           (4, "org.example.Player")])
        self.assertEqual(keys(gaming), [(1, TEA), (2, "org.example.Editor")])
        self.assertEqual(streaming["runningBundleIds"], [])

        def fetch():
            record = phone("icons", self.desktop.root / "icons")
            self.assertEqual(record["missing"], [TEA])
            for each in record["icons"]:
                content = pathlib.Path(each["file"]).read_bytes()
                self.assertEqual(hashlib.sha256(content).hexdigest(), each["revision"])
            return {each["key"]: (each["state"], each["revision"]) for each in record["icons"]}

        first = fetch()
        self.assertEqual({key: revision for key, (_, revision) in first.items()},
                         streaming["iconRevisions"])
        self.assertEqual({state for state, _ in first.values()}, {"fetched"})
        self.assertEqual(set(fetch().values()),
                         {("kept", revision) for _, revision in first.values()})
        self.desktop.write(icon, png((0, 200, 0)))
        changed = fetch()
        self.assertEqual(changed["org.example.Player"],
                         ("kept", first["org.example.Player"][1]))
        state, revision = changed["org.example.Editor"]
        self.assertEqual(state, "fetched")
        self.assertNotEqual(revision, first["org.example.Editor"][1])

    async def test_applications_are_launched_and_brought_forward(self):
        self.desktop.start_bus()
        self.desktop.install("org.example.Editor")
        self.desktop.install_service("org.example.Service")
        self.desktop.write_entry("org.example.Broken", Exec="/nonexistent/program")
        self.desktop.set_decks([app("org.example.Editor"), app("org.example.Service"),
                                app("org.example.Broken"), action("up")])
        phone = self.paired_phone(self.start_agent())
        # As long as a phone is connected the agent looks for what others start.
        client = await Client.connect(phone.token)
        self.assert_slot_outcomes(phone, "focus",
                                  ["not_found", "not_found", "not_found", "not_an_app"])
        self.assert_slot_outcomes(phone, "tap", ["ok", "ok", "launch_failed"])
        self.assertEqual(len(self.desktop.traced("org.example.Editor")), 1)
        self.desktop.traced("org.example.Service")
        self.assertIn("/nonexistent/program", phone("tap", 3)["message"])
        unknown = phone.raw("app.launch", {"bundleId": "org.example.Unknown"})["payload"]
        self.assertEqual((unknown["code"], unknown["message"]),
                         ("not_found", "No application found for bundle identifier"))

        wanted = {"org.example.Editor", "org.example.Service"}
        eventually(lambda: set(phone.decks()[0]["runningBundleIds"]) == wanted, "Running")
        self.assertEqual(set((await client.ping())["runningBundleIds"]), wanted)
        times = len(self.desktop.trace("org.example.Service"))
        self.assert_slot_outcomes(phone, "focus", ["focus_failed", "ok", "not_found"])
        self.assert_slot_outcomes(phone, "tap", ["focus_failed", "ok"])
        self.desktop.traced("org.example.Service", times + 2)
        self.assertEqual(len(self.desktop.trace("org.example.Editor")), 1, "started only once")
        self.assertEqual(len(set(self.desktop.trace("org.example.Service"))), 1)
        await client.socket.close()

    def test_volume_keys_move_the_sink(self):
        self.desktop.set_decks([action("up"), action("down"), action("mute"), action("Mute")])
        phone = self.paired_phone(self.start_agent())
        self.assertEqual(phone("tap", 1)["message"], "No audio output device found.")
        sound = self.desktop.start_sound()
        up, down, mute = 1, 2, 3
        for volume, muted, slot, after in [
                (32768, False, up, (36864, False)), (32768, True, down, (28672, False)),
                (32768, False, mute, (32768, True)), (32768, True, mute, (32768, False)),
                (65536, True, up, (65536, False)), (2000, True, down, (0, True))]:
            self.desktop.pactl("set-sink-volume", "test", volume)
            self.desktop.pactl("set-sink-mute", "test", int(muted))
            self.assertEqual(phone.outcome("tap", slot), "ok")
            self.assertEqual(self.desktop.volume(), after, (volume, muted, slot))
        self.assertEqual(phone.outcome("tap", 4), "unknown")
        sound.terminate()
        sound.wait()
        self.assertEqual(phone("tap", up)["message"], "No audio output device found.")

    async def test_shortcuts_are_run_and_their_failures_told(self):
        self.desktop.set_decks([shortcut(each) for each in (TEA, GONE, REFUSED, BROKEN)])
        agent = self.start_agent()
        phone = self.paired_phone(agent)
        self.assertEqual(phone("tap", 1)["message"],
                         "The shortcuts CLI is not available on this Mac.")
        self.desktop.set_shortcuts(f"""
            {TEA}) exit 0;;
            {GONE}) echo 'Error: The Shortcut was not found.' >&2; exit 1;;
            {REFUSED}) kill -TERM $$;;
            {BROKEN}) echo ' The kettle is dry ' >&2; exit 3;;""")
        self.assert_slot_outcomes(phone, "tap", ["ok", "not_found"])
        client = await Client.connect(phone.token)
        self.assertNotIn("Allow this Shortcut", agent.menu_shows("iPhone connected"))
        await client.socket.close()
        self.assert_slot_outcomes(phone, "tap", ["ok", "not_found", "cancelled", "run_failed"])
        self.assertEqual(phone("tap", 4)["message"], "The kettle is dry")
        agent.menu_shows("Allow this Shortcut on your Mac (System Settings \u2192 Privacy & Security"
                         " \u2192 Automation), then try again.", "1. Dismiss")
        agent.press("Dismiss")
        eventually(lambda: "Allow this Shortcut" not in agent.menu(), "A menu without the hint")


if __name__ == "__main__":
    unittest.main()
