# SPDX-License-Identifier: MIT
"""The rows of the table and their goals."""

import dataclasses


@dataclasses.dataclass
class Row:
    name: str
    text: str
    unit: str
    goal: float = None  # None: for comparison only


ROWS = [
    Row("tcp_p50", "raw TCP echo, p50", "µs"),
    Row("beast_p50", "bare Beast echo, p50 (the floor)", "µs"),
    Row("node_p50", "Node ws answering pongs, p50", "µs"),
    Row("python_p50", "Python websockets answering pongs, p50", "µs"),
    Row("ping_p50", "agent, authorised ping to pong, p50", "µs"),
    Row("node_ratio", "Node ws to the bare echo", "×"),
    Row("python_ratio", "Python websockets to the bare echo", "×"),
    Row("ping_ratio", "agent's ping to the bare echo", "×", 1.4),
    Row("many_beast", "32 connections, one in flight: bare echo, CPU per request", "µs"),
    Row("many_ping", "the same: agent", "µs"),
    Row("many_ratio", "32 connections, one in flight: CPU, agent to bare echo", "×", 2.4),
    Row("deep_beast", "4 connections, 32 in flight: bare echo, CPU per request", "µs"),
    Row("deep_ping", "the same: agent", "µs"),
    Row("deep_ratio", "4 connections, 32 in flight: CPU, agent to bare echo", "×", 1.8),
    Row("sync_p50", "deck.sync, 48 keys of which 8 Shortcuts, warm, p50", "ms", 0.5),
    Row("icons_cold", "24 icons cold, SVG and PNG themes", "ms", 1000),
    Row("icons_warm", "24 icons warm", "ms", 3),
    Row("busy_p99", "ping p99 beside cold icons, a hanging Shortcut and keychain", "ms", 5),
    Row("tap_p50", "tap of a running application to its window active, p50", "ms", 10),
    Row("save", "save to decks.snapshot in 50 phones, p50", "ms", 20),
    Row("start_bare", "start to listening, headless without a keyring", "ms", 150),
    Row("start_tray", "start to listening, with tray and keyring", "ms", 400),
    Row("idle_cpu_tray", "idle with a tray, CPU of one core", "%", 0.02),
    Row("idle_rss_tray", "idle with a tray, no window: resident", "MB", 40),
    Row("idle_wakes_tray", "idle with a tray, wake-ups in 20 s", "", 10),
    Row("idle_cpu_phone", "the same with a quiet phone connected: CPU of one core", "%", 0.02),
    Row("idle_wakes_phone", "the same with a quiet phone connected: wake-ups in 20 s", "", 30),
    Row("idle_cpu_bare", "idle without a display, CPU of one core", "%", 0.02),
    Row("idle_rss_bare", "idle without a display: resident", "MB", 30),
    Row("held", "1,000 connections held: memory for each", "KiB", 32),
    Row("growth_keys", "10 × keys in the file: CPU of a ping, times", "×", 10),
    Row("growth_apps_ping", "10 × applications: CPU of a ping, times", "×", 1.1),
    Row("growth_apps_start", "10 × applications: CPU of the start, times", "×", 10),
]


def shown(row, value):
    return f"{value:.3g} {row.unit}".strip() if value < 100 else f"{value:.0f} {row.unit}".strip()
