#!/usr/bin/env python3
"""Prints how long the program takes from its start to its login window painted."""

import pathlib
import statistics
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "tests/e2e"))
sys.dont_write_bytecode = True

import desktop as desktops  # noqa: E402
import program as programs  # noqa: E402

BINARY = ROOT / "build/release/bin/bracken-lens"
STARTS = 10


def painted(desktop, window):
    """Whether the window shows more than one colour."""
    colours = desktop.ask("sh", "-c", f"import -silent -window {window} png:- | identify -format %k -")
    return colours.strip().isdigit() and int(colours) > 1


def measure(desktop, home):
    begin = time.monotonic()
    with programs.Program(BINARY, desktop, home, "/nowhere") as program:
        window = program.window("Login")
        while not painted(desktop, window):
            pass
        return time.monotonic() - begin


def main():
    with tempfile.TemporaryDirectory(prefix="lens-home-") as folder, desktops.Desktop() as desktop:
        home = programs.Home(folder)
        times = [measure(desktop, home) for _ in range(STARTS)]
    print(f"start to login window painted: {statistics.median(times) * 1000:.0f} ms "
          f"(median of {STARTS}, looked at from outside)")


if __name__ == "__main__":
    main()
