# SPDX-License-Identifier: MIT
"""Prints the table of speed and weight; see bench/run."""

import argparse
import contextlib
import json
import os
import pathlib
import statistics
import subprocess
import sys

import weight
import wire
from goals import ROWS, shown
from stage import BIN

SHORT_FACTOR = 3  # the short form fails above this multiple of a goal


def save(times):
    done = subprocess.run([BIN / "glintboard-save-bench", str(times)], stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL, check=True)
    return {"save": json.loads(done.stdout)["p50"]}


def scenes(short, servers):
    """Every measurement by name. Each returns the figures of its rows."""
    size = 0.2 if short else 1
    return {
        "ping": lambda: wire.pings(servers()),
        "many": lambda: wire.many(servers()),
        "deep": lambda: wire.deep(servers()),
        "sync": lambda: wire.sync(size),
        "icons": wire.icons,
        "busy": lambda: wire.busy(2 if short else 4),
        "tap": lambda: weight.tap(20 if short else 100),
        "save": lambda: save(10 if short else 30),
        "start": lambda: weight.starts(3),
        "idle": lambda: weight.idle(5 if short else 20),
        "held": lambda: weight.held(200 if short else 1000),
        "growth": lambda: weight.growth(size),
    }


def measure(wanted, rounds, short):
    """The figures of all rounds, by row."""
    figures = {}
    for number in range(1, rounds + 1):
        for name in wanted or scenes(short, None):
            print(f"round {number} of {rounds}: {name}", file=sys.stderr)
            # Servers end after each measurement, because all agents use the same port.
            with contextlib.ExitStack() as stack:
                def servers(stack=stack):
                    return wire.Servers(stack, 0.2 if short else 1)
                for row, value in scenes(short, servers)[name]().items():
                    figures.setdefault(row, []).append(value)
    return figures


def computer():
    cpus = pathlib.Path("/proc/cpuinfo").read_text(encoding="ascii").splitlines()
    model = next((line.partition(":")[2].strip() for line in cpus
                  if line.startswith("model name")), "unknown")
    return f"{os.cpu_count()} × {model}, Linux {os.uname().release}, load {os.getloadavg()[0]:.1f}"


def print_table(figures, factor):
    """Returns False if a figure is above `factor` times its goal."""
    passed = True
    print(f"{computer()}\n\n| What | Figure | Least–most | Goal | |\n|---|---|---|---|---|")
    for row in ROWS:
        values = figures.get(row.name)
        if not values:
            continue
        value = statistics.median(values)
        spread = f"{min(values):.3g}–{max(values):.3g}"
        goal = shown(row, row.goal) if row.goal is not None else ""
        verdict = ""
        if row.goal is not None:
            verdict = "met" if value <= row.goal else "missed"
            passed = passed and value <= factor * row.goal
        print(f"| {row.text} | {shown(row, value)} | {spread} | {goal} | {verdict} |")
    return passed


def main():
    options = argparse.ArgumentParser(prog="bench/run")
    options.add_argument("--short", action="store_true")
    options.add_argument("--only", nargs="+", choices=scenes(False, None), metavar="NAME")
    options.add_argument("--rounds", type=int, default=0)
    given = options.parse_args()
    rounds = given.rounds or (1 if given.short else 5)
    figures = measure(given.only, rounds, given.short)
    if not print_table(figures, SHORT_FACTOR if given.short else float("inf")):
        print(f"a figure is above {SHORT_FACTOR} times its goal", file=sys.stderr)
        sys.exit(1)


main()
