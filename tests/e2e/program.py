"""The program under test on a desktop: started with a home of its own and driven like a user."""

import os
import pathlib
import subprocess

import server as servers
from waiting import wait_for

SETTINGS = "com.tallowmere.brackenlens.plist"

# Size of the windows' content, and points in it, in pixels.
LOGIN_WIDTH = 358
LOGIN_HEIGHTS = {"login": 185, "database": 225, "folder": 400}
CONNECT = (271, 163)
DATABASES = (170, 205)
GO = (288, 372)
RESULTS_SIZE = (715, 433)
STOP = (64, 62)
LIST = (15, 84)


def settings_text(folder, extensions, database=""):
    """A settings file that remembers login and folder."""
    strings = {"host": "localhost", "user": servers.USER, "password": servers.PASSWORD,
               "current folder": str(folder), "extensions": extensions, "database": database}
    # As the program's own writer does it: an ampersand stands as it is.
    lines = [f"<key>{key}</key>\n<string>{value.replace('<', '&lt;').replace('>', '&gt;')}</string>"
             for key, value in strings.items() if value or key != "database"]
    return "\n".join(['<?xml version="1.0"?>', '<plist version="1.0">', "<dict>",
                      "<key>remember</key>", "<true/>", *lines, "</dict>", "</plist>", ""])


class Home:
    """A folder that stands for a user's home; the real one is never touched."""

    def __init__(self, folder):
        self.folder = pathlib.Path(folder)
        self.places = {"HOME": "", "XDG_CONFIG_HOME": "config", "XDG_DATA_HOME": "data",
                       "XDG_CACHE_HOME": "cache", "XDG_RUNTIME_DIR": "run"}
        for place in self.places.values():
            (self.folder / place).mkdir(mode=0o700, parents=True, exist_ok=True)

    @property
    def settings(self):
        return self.folder / "config" / SETTINGS

    def remember(self, text):
        self.settings.write_text(text)
        self.settings.chmod(0o600)

    def environment(self, base, socket):
        # The client library itself reads where the server listens.
        paths = {name: str(self.folder / place) for name, place in self.places.items()}
        return {**base, **paths, "MYSQL_UNIX_PORT": str(socket)}


class Program:
    """Runs within a `with` block; ended with it."""

    def __init__(self, binary, desktop, home, socket, errors=None):
        self.binary = binary
        self.errors = errors  # the file that its standard error goes to
        self.desktop = desktop
        self.environment = home.environment(desktop.environment, socket)
        self.process = None

    def __enter__(self):
        self.process = subprocess.Popen([str(self.binary)], env=self.environment,
                                        stderr=self.errors, start_new_session=True)
        return self

    def __exit__(self, *_):
        if self.process.poll() is None:
            self.process.terminate()
        self.process.wait()

    def ended(self):
        """The status with which the program ends."""
        wait_for(lambda: self.process.poll() is not None, "the program to end")
        return self.process.returncode

    def find(self, wanted):
        """The window for which `wanted(window)` holds; raises if the program has ended meanwhile."""
        if self.process.poll() is not None:
            raise RuntimeError(f"the program ended with status {self.process.returncode}")
        return next((window for window in self.desktop.windows() if wanted(window)), None)

    def window(self, title):
        return wait_for(lambda: self.find(lambda w: self.desktop.title(w) == title),
                        f'a window named "{title}"')

    def box(self):
        """A window beside Login and Results."""
        titles = ("Login", "Results", "Preferences")
        return wait_for(lambda: self.find(lambda w: self.desktop.title(w) not in titles),
                        "a message", seconds=600)

    def answer_box(self):
        box = self.box()
        self.desktop.activate(box)
        self.desktop.keys("Return")
        wait_for(lambda: box not in self.desktop.windows(), "the message to go")

    def menu(self, window, content):
        """The height of the window's menu bar, once its content has that size."""
        def measured():
            frame = self.desktop.frame(window)
            height = frame[3] - content[1] if frame and frame[2] == content[0] else -1
            # One more, so that a window with none is measured too.
            return height + 1 if 0 <= height < 40 else 0
        return wait_for(measured, "the window's size") - 1

    def click(self, window, point, menu):
        """Presses at a point of the content below a menu bar of height `menu`."""
        left, top, _, _ = self.desktop.frame(window)
        self.desktop.click(left + point[0], top + menu + point[1])


class LoginWindow:
    """From its coming up to Go!."""

    def __init__(self, program):
        self.program = program
        self.window = program.window("Login")
        self.menu = program.menu(self.window, (LOGIN_WIDTH, LOGIN_HEIGHTS["login"]))

    def connect(self, stage):
        self.program.desktop.activate(self.window)
        self.press(CONNECT)
        self.await_stage(stage)

    def choose(self, database):
        self.press(DATABASES)
        self.program.desktop.type(database)
        self.program.desktop.keys("Return")
        self.await_stage("folder")

    def await_stage(self, stage):
        self.program.menu(self.window, (LOGIN_WIDTH, LOGIN_HEIGHTS[stage]))

    def press(self, point):
        self.program.click(self.window, point, self.menu)

    def go(self):
        self.press(GO)


class ResultsWindow:
    """Comes up with Go!."""

    def __init__(self, program):
        self.program = program
        self.desktop = program.desktop
        self.window = program.window("Results")
        self.menu = program.menu(self.window, RESULTS_SIZE)
