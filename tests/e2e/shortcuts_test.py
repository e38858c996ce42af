# SPDX-License-Identifier: MIT
"""The `shortcuts` tool, alone and run by the agent."""

import concurrent.futures
import re
import subprocess
import unittest

from client import Client
from desktop import FOLDER, TOOL, DesktopTest, alive, eventually

UNKNOWN = "0F8FAD5B-D9CB-469F-A165-70867728950E"
CANCELLED = "cancelled", "Needs permission or input on your Mac."
MISSING = "The Shortcut's command names a program that is not installed"


class Shortcuts(DesktopTest):
    def setUp(self):
        super().setUp()
        self.folder = self.desktop.support / "Shortcuts"
        self.told = self.desktop.root / "told"

    def tool(self, *words):
        return subprocess.run([TOOL, *words], env=self.desktop.env, input="", timeout=60,
                              capture_output=True, text=True, check=False)

    def assert_fails(self, words, exit_code, says=""):
        done = self.tool(*words)
        self.assertEqual(done.returncode, exit_code, words)
        self.assertIn(says, done.stderr)
        self.assertNotEqual(done.stderr, "", words)

    def create(self, name, command):
        """Makes a Shortcut and returns its identifier."""
        made = self.tool("create", name, "--command", command)
        return re.fullmatch(rf"{re.escape(name)} \(([0-9A-F-]{{36}})\)\n", made.stdout)[1]

    def listed(self):
        """The identifiers of the listed Shortcuts by name."""
        lines = self.tool("list", "--show-identifiers").stdout.splitlines()
        return dict(re.fullmatch(r"(.*) \(([0-9A-F-]{36})\)", line).groups() for line in lines)

    def file_of(self, identifier):
        return self.folder / f"{identifier}.shortcut"

    def tell(self, command):
        """A shell command that stores the output of `command` for `what_was_told`."""
        return f"({command}) >{self.told}.new; mv {self.told}.new {self.told}"

    def what_was_told(self):
        eventually(self.told.exists, "Its output")
        return self.told.read_text()

    def test_creates_edits_and_deletes(self):
        self.assertEqual(self.tool("list").stdout, "")
        command = "printf '%s\\n' \"a\\tb\"  # \u00fc\necho done"
        tea, boil = self.create("Make tea (green)", command), self.create("Boil", "true")
        self.assertEqual(self.tool("list").stdout, "Boil\nMake tea (green)\n")
        self.assertEqual(self.listed(), {"Boil": boil, "Make tea (green)": tea})
        self.assertIn(command, self.tool("show", tea.lower()).stdout)
        self.assertEqual(self.tool("run", tea).stdout, "a\\tb\ndone\n")

        self.assertEqual(self.tool("edit", "Boil", "--name", "--", "--icon=kettle").returncode, 0)
        self.assertRegex(self.tool("show", "--", "--").stdout,
                         "Name:       --\n(.*\n)*Icon:       kettle\n")
        self.assertEqual(self.tool("edit", boil, "--icon", "").returncode, 0)
        self.assertEqual(self.file_of(boil).read_text(), "[Shortcut]\nName=--\nCommand=true\n")

        self.assertEqual(self.tool("delete", tea).returncode, 0)
        self.assertEqual(self.tool("list").stdout, "--\n")

    def test_refuses_invalid_arguments(self):
        tea = self.create("Tea", "true")
        before = self.file_of(tea).read_text()
        for words in ([], ["brew"], ["run"], ["list", "--all"], ["list", "--show-identifiers=yes"],
                      ["create", "Milk"], ["create", "Milk", "--command"], ["edit", "Tea"],
                      ["edit", "Tea", "--name", "a", "--name", "b"]):
            self.assert_fails(words, 2, 'Try "shortcuts help"')
        for words in (["create", "Tea", "--command", "true"], ["create", " ", "--command", "true"],
                      ["create", "Milk", "--command", ""], ["create", b"\xff", "--command", "true"],
                      ["edit", "Tea", "--command", " "], ["edit", "Milk", "--name", "Coffee"],
                      ["delete", "Milk"], ["show", tea[1:]]):
            self.assert_fails(words, 1)
        self.assertEqual(self.tool("list").stdout, "Tea\n")
        self.assertEqual(self.file_of(tea).read_text(), before)
        self.assertEqual(self.tool("edit", "Tea", "--name", "Tea").returncode, 0)

    def test_skips_damaged_files_without_touching_them(self):
        tea = self.create("Tea", "true")
        damaged = {self.file_of(name): content for name, content in (
            (UNKNOWN[:-1] + "0", b"not a key file"),
            (UNKNOWN[:-1] + "1", b"[Shortcut]\nName=No command\n"),
            (UNKNOWN[:-1] + "2", b"[Shortcut]\nCommand=true\n"),
            (UNKNOWN[:-1] + "3", b"[Shortcut]\nName=Bad escape\nCommand=\\d\n"),
            (UNKNOWN[:-1] + "4", b"[Shortcut]\nName=\xff\nCommand=true\n"),
            ("no-uuid", b"[Shortcut]\nName=No identifier\nCommand=true\n"),
            (tea.lower(), b"[Shortcut]\nName=Twice\nCommand=true\n"))}
        for file, content in damaged.items():
            file.write_bytes(content)
        (self.folder / f"{tea}.shortcut.Ab12Cd").write_text("half written")
        listed = self.tool("list")
        self.assertEqual((listed.returncode, listed.stdout), (0, "Tea\n"))
        self.assertEqual({line.partition(": ")[0] for line in listed.stderr.splitlines()},
                         {f"Skipped {file}" for file in damaged})
        for command in "run", "delete", "show":
            self.assert_fails([command, UNKNOWN[:-1] + "1"], 1, "has no Command")
        self.assertEqual({file: file.read_bytes() for file in damaged}, damaged)

    def test_an_edit_keeps_foreign_content(self):
        tea = self.create("Tea", "true")
        content = "[Shortcut]\n# Mine\nName=Tea\nName[de]=Tee\nCommand=true\nX-Note=hot\n"
        self.file_of(tea).write_text(content)
        self.assertEqual(self.tool("edit", tea, "--command", "false").returncode, 0)
        self.assertEqual(self.file_of(tea).read_text(), content.replace("true", "false"))

    def test_concurrent_changes_are_all_kept(self):
        tea = self.create("Tea", "true")
        changes = [words for number in range(5) for words in (
            ("edit", tea, "--name", "Green tea"), ("edit", tea, "--command", "echo green"),
            ("edit", tea, "--icon", "leaf"), ("create", f"Cup {number}", "--command", "true"),
            ("create", "Only one", "--command", "true"))]
        with concurrent.futures.ThreadPoolExecutor(len(changes)) as pool:
            done = list(pool.map(lambda words: self.tool(*words).returncode, changes))
        self.assertEqual(sum(map(bool, done)), 4, "the name of one Shortcut is taken once")
        self.assertEqual(self.file_of(tea).read_text(),
                         "[Shortcut]\nName=Green tea\nCommand=echo green\nIcon=leaf\n")
        self.assertEqual(self.tool("list").stdout,
                         "Cup 0\nCup 1\nCup 2\nCup 3\nCup 4\nGreen tea\nOnly one\n")

    async def test_failures_are_classified_for_the_phone(self):
        text = self.desktop.write(self.desktop.root / "text", "no program")
        client = await Client.connect(self.paired_phone(self.start_agent()).token)
        failed = "run_failed"
        for command, outcome in (
                ("kill -TERM $$", CANCELLED), ("kill -INT $$", CANCELLED), ("exit 130", CANCELLED),
                ("exit 143", CANCELLED), (str(text), CANCELLED), ("exit 126", CANCELLED),
                ("echo out; echo 'The kettle is empty.' >&2; exit 7",
                 (failed, "The kettle is empty.")),
                ("exit 7", (failed, "Could not run Shortcut on Mac.")),
                ("kill -KILL $$", (failed, "The Shortcut's command was ended by signal 9 (KILL).")),
                ("exit 170", (failed, "The Shortcut's command was ended by signal 42.")),
                ("no-such-kettle --boil", (failed, f"{MISSING}: no-such-kettle")),
                ("echo 'No water.' >&2; exit 127", (failed, f"No water.\n{MISSING}.")),
                ("echo 'not found' >&2", (None, None)),
                ('[ -z "$PULSE_CLIENTCONFIG" ]', (None, None)),
                (None, ("not_found", "Shortcut missing \u2014 replace it in Edit Deck."))):
            identifier = self.create(f"Case {command}", command) if command else UNKNOWN
            reply = await client.ask("shortcut.run", {"shortcutIdentifier": identifier})
            told = reply["payload"]
            self.assertEqual((told.get("code"), told.get("message")), outcome, command)
        self.create("Seven", "exit 7")
        self.assertEqual(self.tool("run", "Seven").returncode, 7, "the command's own")
        self.create("Left behind", "echo early >&2; (sleep 0.2; printf late >&2) &")
        self.assertEqual(self.tool("run", "Left behind").stderr, "early\nlate")

    def test_a_command_ends_with_a_killed_tool(self):
        self.create("Slow", self.tell("echo $$") + "; exec sleep 60")
        running = self.desktop.start(TOOL, "run", "Slow")
        command = int(self.what_was_told())
        running.kill()
        eventually(lambda: not alive(command), "The command's end")

    def test_a_command_runs_at_home_without_input(self):
        self.create("Where", "pwd; readlink /proc/$$/fd/0; ls /proc/$$/fd; "
                             "grep SigIgn /proc/$$/status")
        self.assertRegex(self.tool("run", "Where").stdout,
                         rf"^{self.desktop.root}\n/dev/null\n0\n1\n2\nSigIgn:.*0000000\n$")

    async def test_their_folder_opens_in_the_file_manager(self):
        manager = self.desktop.write(self.desktop.root / "files",
                                     "#!/bin/sh\n" + self.tell('echo "$1"'), 0o755)
        self.desktop.write_entry("files", Exec=f"{manager} %f", MimeType="inode/directory;")
        self.desktop.write(self.desktop.data / "applications/mimeinfo.cache",
                           "[MIME Cache]\ninode/directory=files.desktop;\n")
        client = await Client.connect(self.paired_phone(self.start_agent()).token)
        reply = await client.ask("app.launch", {"bundleId": "com.apple.shortcuts"})
        self.assertEqual(reply["type"], "app.ok")
        self.assertEqual(self.what_was_told(), f"{self.folder}\n")
        self.assertTrue(self.folder.is_dir())

    def test_actions_of_applications_have_stable_identifiers(self):
        actions = "new;nameless;\n[Desktop Action new]\nName=New Window\nExec=x"
        self.desktop.write_entry("org.test.Browser", Exec="true", Actions=actions)
        self.desktop.write_entry("other", Exec="true", Actions=actions)
        self.desktop.write_entry("unlisted", NoDisplay="true", Actions=actions)
        self.desktop.write_entry("deleted", Hidden="true", Actions=actions)
        self.assertEqual(self.listed(), {
            "Browser: New Window": "51FA575F-895A-5356-A4BE-5F4B8AA67453",
            "other: New Window": "EE920191-F010-51E2-9BD9-78B054599A58"})

    def test_an_action_starts_the_application_in_its_own_session(self):
        script = self.tell('echo "$@"; pwd; readlink /proc/$$/fd/1 /proc/$$/fd/2; '
                           "ps -o sid= -p $$; echo $$")
        program = self.desktop.write(self.desktop.root / "browser", f"#!/bin/sh\n{script}", 0o755)
        self.desktop.write_entry("browser", Exec="false", Path="/usr", Actions=(
            f'private;lost;\n[Desktop Action private]\nName=Private\nExec={program} --private '
            '"two words" %U\n[Desktop Action lost]\nName=Lost\nExec=/no/such/program'))
        self.assertEqual(self.tool("run", self.listed()["browser: Private"]).returncode, 0)
        words, folder, output, error, session, process = self.what_was_told().splitlines()
        self.assertEqual((words, folder, output, error),
                         ("--private two words", "/usr", "/dev/null", "/dev/null"))
        self.assertEqual(session.strip(), process, "leads its session")
        self.assert_fails(["run", "browser: Lost"], 1, "names no program that is installed")
        for words in ["delete", "browser: Lost"], ["edit", "browser: Lost", "--name", "x"]:
            self.assert_fails(words, 1, "belongs to an application")

    def test_an_action_uses_dbus_activation(self):
        self.desktop.start_bus()
        self.desktop.install_service("org.test.Editor")
        for name in "Editor", "Nobody":
            self.desktop.write_entry(f"org.test.{name}", DBusActivatable="true", Actions=(
                "new-file;\n[Desktop Action new-file]\nName=New File"))
        self.assertEqual(self.tool("run", "Editor: New File").stderr, "")
        self.assertEqual(self.desktop.activations("org.test.Editor"),
                         ["ActivateAction /org/test/Editor ('new-file', [], {})"])
        self.assert_fails(["run", "Nobody: New File"], 1)


if __name__ == "__main__":
    unittest.main()
