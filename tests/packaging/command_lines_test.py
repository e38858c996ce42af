# SPDX-License-Identifier: MIT
"""Help, manual pages and completions of the programs match what they accept.

command_lines_test.py PACKAGING VERSION PROGRAM…
"""

import pathlib
import re
import subprocess
import sys
import unittest

PACKAGING, VERSION, *PROGRAMS = sys.argv[1:]
# Too many operands for any command, so that nothing is done.
NONSENSE = ["x"] * 9


def run(*words):
    return subprocess.run(words, capture_output=True, text=True, timeout=60)


def completed(program, *before):
    """The words that the shell offers next, without and with a dash."""
    script = ('. "$1/completion.bash"; shift; words=("$@"); for word in "" -; do '
              'COMP_WORDS=("${words[@]}" "$word") COMP_CWORD=${#words[@]}; '
              '_glintboard "$1" "$word" "${words[-1]}"; printf "%s\\n" "${COMPREPLY[@]}"; done')
    return set(run("bash", "-c", script, "bash", PACKAGING, program, *before).stdout.split())


def takes(program, command, option):
    tried = run(program, *command, option, *NONSENSE)
    assert tried.returncode == 2, tried
    return not re.search(rf'no option "?{option}\b|{option} is no option',
                         tried.stdout + tried.stderr)


class CommandLines(unittest.TestCase):
    def test_packages_of_other_distributions_have_the_same_version(self):
        for recipe, pattern in (("arch/PKGBUILD", r"^pkgver=(.*)$"),
                                ("rpm/glintboard-agent.spec", r"^Version: *(.*)$")):
            text = pathlib.Path(PACKAGING, recipe).read_text()
            self.assertEqual(re.search(pattern, text, re.M)[1], VERSION, recipe)

    def test_completes_values_after_an_equals_sign(self):
        phone = next(program for program in PROGRAMS if program.endswith("phone"))
        commands = completed(phone)
        for words, offered in (("--host", "=", "studio"), commands), (
                ("tap", "--deck", "="), {"streaming", "gaming"}):
            self.assertLessEqual(offered, completed(phone, *words), words)

    def test_help_manuals_and_completions_agree(self):
        for program in PROGRAMS:
            name = pathlib.Path(program).name
            text = run(program, "--help").stdout
            options = set(re.findall(r"--[a-z][a-z-]+", text)) - {"--help", "--version"}
            manual = pathlib.Path(PACKAGING, "man", f"{name}.1").read_text().replace("\\-", "-")
            commands = {word for word in completed(program) if not word.startswith("-")}
            with self.subTest(program=name):
                self.assertRegex(run(program, "--version").stdout, rf"{re.escape(VERSION)}\n$")
                self.assertEqual({word for word in options | commands
                                  if not re.search(rf"(^|[^a-z-]){word}\b", manual)}, set())
                section = text.partition("\nCommands:\n")[2].partition("\n\n")[0]
                self.assertEqual(commands, set(re.findall(r"^  ([a-z]+)", section, re.M)))
            # The agent has no commands.
            for command in commands - {"help"} or {None}:
                words = (command,) if command else ()
                with self.subTest(program=name, command=command):
                    self.assertFalse(takes(program, words, "--no-such-option"))
                    offered = {word for word in completed(program, *words) if word[:2] == "--"}
                    self.assertEqual(offered - {"--help", "--version"}, {
                        option for option in options if takes(program, words, option)})


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
