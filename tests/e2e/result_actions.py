"""What a user does with the results: where the buttons are, and what they are given."""

import contextlib
import urllib.parse

from waiting import wait_for

# Points in the content of the results window and of the question ahead of a report.
EXPORT, PRINT, DROP, DATA = (630, 393), (520, 393), (70, 393), (180, 393)
SCRIPT = (290, 393)
YES, NO, BOX = (357, 89), (255, 89), (24, 89)
CONFIRM = "Untitled"


class Browser:
    """A default browser of that home which writes down what it is given. To be made ahead of the
    program's start."""

    def __init__(self, home):
        self.record = home.folder / "opened"
        recorder = home.folder / "recorder"
        recorder.write_text(f'#!/bin/sh\necho "$1" >>"{self.record}"\n')
        recorder.chmod(0o755)
        applications = home.folder / "data/applications"
        applications.mkdir()
        (applications / "recorder.desktop").write_text(
            f"[Desktop Entry]\nType=Application\nName=Recorder\nExec={recorder} %u\n")
        (home.folder / "config/mimeapps.list").write_text(
            "[Default Applications]\ntext/html=none.desktop;\nx-scheme-handler/https=gone.desktop;recorder.desktop\n")

    def await_opened(self):
        """The path opened last."""
        lines = wait_for(lambda: self.record.exists() and self.record.read_text().splitlines(),
                         "the browser")
        return urllib.parse.unquote(urllib.parse.urlparse(lines[-1]).path)


class Actions:
    """Presses what the results window offers."""

    def __init__(self, program, results):
        self.program = program
        self.desktop = program.desktop
        self.results = results

    def press(self, point):
        self.desktop.activate(self.results.window)
        self.program.click(self.results.window, point, self.results.menu)

    def gone(self, window):
        wait_for(lambda: window not in self.desktop.windows(), "the dialog to go")

    def close(self, window):
        """Presses Ctrl+W until the window goes: while a statement is under way it takes no keys."""
        while window in self.desktop.windows():
            self.desktop.activate(window)
            self.desktop.keys("ctrl+w")
            with contextlib.suppress(TimeoutError):
                wait_for(lambda: window not in self.desktop.windows(), "the window to close", 2)

    def export(self, path, picture=None):
        self.press(EXPORT)
        window = self.program.box()
        self.desktop.activate(window)
        self.desktop.keys("ctrl+a")
        self.desktop.type(str(path))
        if picture:
            self.desktop.picture(picture)
        self.desktop.keys("Return")
        self.gone(window)
        self.program.answer_box()

    def confirm(self, *points, picture=None):
        window = self.program.window(CONFIRM)
        if picture:
            self.desktop.picture(picture)
        for point in points:
            self.program.click(window, point, 0)
        self.gone(window)
