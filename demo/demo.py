#!/usr/bin/env python3
"""Shows the program at work on a private server; see scripts/demo for its use."""

import argparse
import os
import pathlib
import signal
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "tests/e2e"))
sys.dont_write_bytecode = True

import desktop as desktops  # noqa: E402
import expected  # noqa: E402
import inputs  # noqa: E402
import program as programs  # noqa: E402
import result_actions  # noqa: E402
import server as servers  # noqa: E402
from waiting import wait_for  # noqa: E402

BINARY = ROOT / "build/release/bin/bracken-lens"


def by_hand(chosen, home, server):
    """Opens the program on the user's own display and waits until it is closed."""
    print(f'\nThe login is filled in. Press Connect, choose "{chosen.database}" and press Go!\n'
          "The server stops when you close the program.")
    environment = home.environment(os.environ, server.socket)
    # The display is the user's, so its sockets are found where they are.
    environment.update({name: value for name, value in os.environ.items()
                        if name == "XDG_RUNTIME_DIR"})
    return subprocess.run([str(BINARY)], env=environment).returncode


def headless(chosen, home, server, pictures):
    """Presses the real buttons and compares the list; gives the process's status."""
    wanted = chosen.rows(server.tables(chosen.database))
    browser = result_actions.Browser(home)
    with desktops.Desktop() as desktop, \
            programs.Program(BINARY, desktop, home, server.socket) as program:
        shown, differences = run(program, desktop, chosen, home, browser, pictures)
    print_table(shown)
    differences += compare(shown, wanted)
    print("\n".join(differences), end="\n" if differences else "")
    print(f"Screenshots: {pictures}")
    print("The list or a file is wrong." if differences
          else "The list and the files are exactly what they must be.")
    return 1 if differences else 0


def run(program, desktop, chosen, home, browser, pictures):
    login = programs.LoginWindow(program)
    desktop.picture(pictures / "1-login.png", login.window)
    login.connect("database")
    desktop.picture(pictures / "2-database.png", login.window)
    login.choose(chosen.database)
    desktop.picture(pictures / "3-folder.png", login.window)
    login.go()
    results = programs.ResultsWindow(program)
    desktop.picture(pictures / "4-running.png")
    program.box()
    desktop.picture(pictures / "5-finished.png")
    program.answer_box()
    rows = rows_of(results)
    desktop.picture(pictures / "6-results.png", results.window)
    differences = show_actions(program, results, rows, home, browser, pictures)
    desktop.activate(results.window)
    desktop.keys("ctrl+comma")
    desktop.picture(pictures / "10-preferences.png", program.window("Preferences"))
    return rows, differences


def rows_of(results):
    """All rows of the list as a user can copy them: lists of cells, as bytes."""
    results.desktop.activate(results.window)
    point = (programs.LIST[0] + 60, programs.LIST[1] + 40)
    results.program.click(results.window, point, results.menu)
    results.desktop.keys("ctrl+Home")
    rows = [copied_row(results.desktop)]
    while True:
        results.desktop.keys("Down")
        row = copied_row(results.desktop)
        if row == rows[-1]:
            return [text.rstrip(b"\n").split(b"\t") for text in rows]
        rows.append(row)


def copied_row(desktop):
    marker = b"nothing copied yet"
    subprocess.run(["xclip", "-selection", "clipboard", "-in"], env=desktop.environment,
                   input=marker, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=True)
    # It asks for the clipboard in the background, and must not come after the next owner.
    wait_for(lambda: desktop.clipboard() == marker, "the text on the clipboard")
    desktop.keys("ctrl+c")
    wait_for(lambda: desktop.clipboard() not in (marker, b""), "a row on the clipboard", 10)
    return desktop.clipboard()


def show_actions(program, results, rows, home, browser, pictures):
    """Exports, reports and views the data of the selected table; one line for each file that is not
    as it must be."""
    actions = result_actions.Actions(program, results)
    file = home.folder / "results.csv"
    actions.export(file, pictures / "7-export.png")
    actions.press(result_actions.PRINT)
    actions.confirm(result_actions.YES, picture=pictures / "8-report.png")
    page = browser.await_opened()
    table = rows[-1][0].decode()
    actions.press(result_actions.DATA)
    window = program.window(f"View Data for {table}")
    wait_for(lambda: program.desktop.frame(window)[2] == 1024, "the size of the data window")
    program.desktop.picture(pictures / "9-data.png", window)
    actions.close(window)
    wanted = {file: expected.exported(rows), pathlib.Path(page): expected.report(rows)}
    return [f"{path.name} is not as it must be" for path, text in wanted.items()
            if path.read_bytes() != text]


def compare(shown, wanted):
    """One line for each row that is not as it must be, both columns compared."""
    lines = [f"{len(shown)} rows shown, {len(wanted)} wanted"] if len(shown) != len(wanted) else []
    for number, (have, want) in enumerate(zip(shown, wanted)):
        if list(have) != list(want):
            lines.append(f"row {number}: shown {have}, wanted {list(want)}")
    return lines


def print_table(rows):
    texts = [[cell.decode(errors="replace") for cell in row] for row in rows]
    width = max((len(row[0]) for row in texts), default=0)
    print(f"\n{'Table':<{width}}  Found In")
    for row in texts:
        found = row[1] if len(row[1]) < 100 else row[1][:97] + "..."
        print(f"{row[0]:<{width}}  {found}")
    print()


def arguments():
    parser = argparse.ArgumentParser()
    parser.add_argument("--headless", action="store_true")
    parser.add_argument("--on", choices=inputs.CHOICES, default="sample")
    given = parser.parse_args()
    given.headless |= not (os.environ.get("DISPLAY") or os.environ.get("WAYLAND_DISPLAY"))
    return given


def leave(number, _):
    """Leaves by way of the `with` blocks, which a second signal must not cut short."""
    for other in (signal.SIGINT, signal.SIGTERM):
        signal.signal(other, signal.SIG_IGN)
    sys.exit(128 + number)


def main():
    for number in (signal.SIGINT, signal.SIGTERM):
        signal.signal(number, leave)
    given = arguments()
    chosen = inputs.CHOICES[given.on]()
    pictures = ROOT / "build" / "demo" / given.on
    pictures.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory(prefix="lens-home-") as folder, servers.Server() as server:
        print(f"Loading {chosen.database} into a private server", flush=True)
        server.load(chosen.database, chosen.script)
        home = programs.Home(folder)
        home.remember(programs.settings_text(chosen.sources, chosen.extensions))
        if given.headless:
            return headless(chosen, home, server, pathlib.Path(pictures))
        return by_hand(chosen, home, server)


if __name__ == "__main__":
    sys.exit(main())
