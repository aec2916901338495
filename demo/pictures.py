#!/usr/bin/env python3
"""Makes the guide's pictures: each window at 100 and 200 %, light and dark.

    demo/pictures.py [FOLDER]

Takes the program that scripts/demo has built. The pictures go to docs/pictures if no FOLDER is given,
each with the few colours that it has.
"""

import pathlib
import shutil
import sys
import tempfile

import demo
from demo import desktops, programs, result_actions, servers
import sample
from waiting import wait_for

# Where the sources lie, as the windows show it.
PLACE = pathlib.Path("/tmp/shop")
TABLE = "user"
FIRST_SCRIPT = (60, 65)
DARK = {"Window": ("49,54,59", "239,240,241"), "View": ("35,38,41", "239,240,241"),
        "Button": ("59,64,69", "239,240,241"), "Selection": ("42,94,141", "252,252,252"),
        "Tooltip": ("49,54,59", "239,240,241")}


class ScaledDesktop(desktops.Desktop):
    """A screen of so many times the pixels, on which places are given in the program's units."""

    def __init__(self, scale):
        super().__init__()
        self.scale = scale
        self.environment["QT_SCALE_FACTOR"] = str(scale)

    @property
    def size(self):
        return tuple(length * self.scale for length in super().size)

    def frame(self, window):
        frame = super().frame(window)
        return frame and tuple(length // self.scale for length in frame)

    def click(self, x, y):
        super().click(x * self.scale, y * self.scale)


def darken(home, desktop):
    """Sets a dark palette in the form in which a desktop keeps its colours."""
    lines = []
    for part, (ground, text) in DARK.items():
        lines += [f"[Colors:{part}]", f"BackgroundNormal={ground}", f"ForegroundNormal={text}",
                  f"BackgroundAlternate={ground}", "ForegroundInactive=161,169,177",
                  "ForegroundLink=29,153,243", "ForegroundVisited=155,89,182"]
    (home.folder / "config/kdeglobals").write_text("\n".join(lines) + "\n")
    desktop.environment |= {"XDG_CURRENT_DESKTOP": "KDE", "KDE_SESSION_VERSION": "5"}


class Photographer:
    def __init__(self, desktop, folder, suffix):
        self.desktop, self.folder, self.suffix = desktop, folder, suffix
        self.latest = b""

    def _still(self, window):
        before, self.latest = self.latest, self.desktop.ask(
            "import", "-silent", "-window", str(window), "png:-")
        return self.latest == before

    def take(self, window, name):
        """Waits until two looks at the window show the same."""
        wait_for(lambda: self._still(window), "a window that stands still")
        self.desktop.ask("convert", "png:-", "-strip", "-dither", "None", "-colors", "96",
                         f"png8:{self.folder / (name + self.suffix)}.png", text=self.latest)


def tour(program, desktop, take):
    login = programs.LoginWindow(program)
    login.connect("database")
    login.choose("shop")
    take(login.window, "login")
    login.go()
    results = programs.ResultsWindow(program)
    program.answer_box()
    actions = result_actions.Actions(program, results)
    program.click(results.window, (75, 124), results.menu)
    desktop.keys("Home")
    desktop.type(TABLE)
    take(results.window, "results")
    actions.press(result_actions.DATA)
    data = program.window(f"View Data for {TABLE}")
    take(data, "data")
    actions.close(data)
    actions.press(result_actions.SCRIPT)
    script = program.window(f"View Scripts for {TABLE}")
    program.click(script, FIRST_SCRIPT, results.menu)
    take(script, "script")
    actions.close(script)
    actions.press(result_actions.PRINT)
    take(program.window(result_actions.CONFIRM), "report")
    actions.confirm(result_actions.NO)
    actions.press(result_actions.DROP)
    question = program.box()
    take(question, "drop")
    desktop.keys("Escape")
    actions.gone(question)
    desktop.keys("ctrl+comma")
    take(program.window("Preferences"), "preferences")


def photograph(server, folder, scale, dark):
    suffix = ("-dark" if dark else "") + ("" if scale == 1 else f"-{scale}00")
    with tempfile.TemporaryDirectory(prefix="lens-home-") as place, \
            ScaledDesktop(scale) as desktop:
        home = programs.Home(place)
        home.remember(programs.settings_text(PLACE / "sources", sample.sample().extensions))
        if dark:
            darken(home, desktop)
        with programs.Program(demo.BINARY, desktop, home, server.socket) as program:
            tour(program, desktop, Photographer(desktop, folder, suffix).take)


def main():
    folder = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else demo.ROOT / "docs/pictures")
    chosen = sample.sample()
    PLACE.mkdir()
    try:
        shutil.copytree(chosen.sources, PLACE / "sources", symlinks=True)
        with servers.Server() as server:
            server.load(chosen.database, chosen.script)
            for scale in (1, 2):
                for dark in (False, True):
                    photograph(server, folder, scale, dark)
    finally:
        shutil.rmtree(PLACE)


if __name__ == "__main__":
    main()
