#!/usr/bin/env python3
"""Drives the built program by clicks and keys: from login to results, all that one does there, and
the program as it is installed.

    test_e2e.py PROGRAM [UNITTEST-ARGUMENT...]
"""

import pathlib
import plistlib
import stat
import subprocess
import sys
import tempfile
import unittest

import desktop as desktops
import program as programs
import sample
import server as servers
from result_actions import BOX, DATA, DROP, NO, PRINT, SCRIPT, YES, Actions, Browser
from waiting import wait_for

BINARY = None
NAMES = ["aa", "c d", "zz"]
EXPORTED = b"aa\t<i>&.php,\nc d\tNot Found Yet\nzz\tNot Found Yet\n"
# Points in the content of the window of scripts.
FILE, TEXT = (60, 59), (300, 500)


class Results(unittest.TestCase):
    """One server and one desktop for all tests; a database, a home and sources for each."""

    @classmethod
    def setUpClass(cls):
        cls.server = cls.enterClassContext(servers.Server())
        cls.desktop = cls.enterClassContext(desktops.Desktop())

    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(
            tempfile.TemporaryDirectory(prefix="lens-home-")))
        self.home = programs.Home(self.folder)
        self.browser = Browser(self.home)
        self.source = self.folder / "sources/<i>&.php"
        self.source.parent.mkdir()
        self.source.write_text("select * from aa\n" * 90 + "AA")
        self.server.run("create or replace database deeds")
        self.server.run("".join(f"create table `{name}` (id int);" for name in NAMES), "deeds")

    def login(self, stage="folder", binary=None):
        self.program = self.enterContext(
            programs.Program(binary or BINARY, self.desktop, self.home, self.server.socket))
        login = programs.LoginWindow(self.program)
        if stage:
            login.connect(stage)
        return login

    def start(self):
        """From login to the end of a run."""
        self.home.remember(programs.settings_text(self.source.parent, "", "deeds"))
        self.login().go()
        self.finish()

    def finish(self):
        self.results = programs.ResultsWindow(self.program)
        self.program.answer_box()
        self.actions = Actions(self.program, self.results)

    def quit(self):
        self.desktop.activate(self.results.window)
        self.desktop.keys("ctrl+q")
        self.assertEqual(self.program.ended(), 0)

    def press(self, point, table=None):
        """Presses a button, with that table selected."""
        if table:
            self.actions.press((programs.LIST[0] + 60, programs.LIST[1] + 40))
            self.desktop.keys("ctrl+Home", *["Down"] * NAMES.index(table))
        self.actions.press(point)

    def answer(self, *keys, to=None):
        """Answers the box in front, or the question that comes up before that dialog."""
        box = wait_for(lambda: self.program.find(
            lambda w: w not in (to, self.results.window) and self.desktop.title(w) != "Login"), "a box")
        self.desktop.activate(box)
        self.desktop.keys(*keys)
        self.actions.gone(box)

    def test_login_to_results_and_again(self):
        chosen = sample.sample()
        self.server.load(chosen.database, chosen.script)
        self.home.remember(programs.settings_text(chosen.sources, chosen.extensions))
        login = self.login("database")
        login.choose(chosen.database)
        login.go()
        self.finish()
        self.assertEqual([tuple(row) for row in self.results.rows()],
                         chosen.rows(self.server.tables(chosen.database)))
        self.desktop.place(self.results.window, 211, 144, 640, 380)
        left = self.desktop.frame(self.results.window)
        self.quit()
        self.assertEqual(stat.S_IMODE(self.home.settings.stat().st_mode), 0o600)

        # The second start knows login, folder and database, and where the results stood.
        self.login()
        self.desktop.keys("Return")
        window = self.program.window("Results")
        wait_for(lambda: self.desktop.frame(window) == left, f"the frame {left}")
        self.program.answer_box()

    def test_export(self):
        self.start()
        file = self.folder / "list"
        self.actions.export(file)
        self.assertEqual(file.read_bytes(), EXPORTED)
        # Another time it asks before it replaces the file.
        file.write_text("old")
        self.answer("alt+y", to=self.actions.type_export(file))
        self.program.answer_box()
        self.assertEqual(file.read_bytes(), EXPORTED)

    def test_report(self):
        self.start()
        page = self.folder / "data/Bracken Lens/report.html"
        self.press(PRINT)
        self.actions.confirm(BOX, NO)
        self.assertFalse(page.exists())
        self.press(PRINT)
        self.actions.confirm(BOX, YES)
        self.assertEqual(self.browser.await_opened(1), str(page))
        self.assertIn(b"<td>aa</td><td><i>&.php,</td>", page.read_bytes())
        # Ticked with Yes, the box is remembered: nobody is asked any more.
        self.press(PRINT)
        self.browser.await_opened(2)

    def test_drop(self):
        self.start()
        for table, left, *keys in [("aa", NAMES, "Escape"), ("aa", NAMES, "Return"),
                                   ("aa", NAMES[1:], "alt+y")]:
            self.press(DROP, table)
            self.answer(*keys)
            wait_for(lambda: self.server.tables("deeds") == [name.encode() for name in left], left)
        self.assertEqual([row[0] for row in self.results.rows()], [b"c d", b"zz"])

    def test_data_and_script(self):
        self.start()
        self.press(DATA, "aa")
        data = self.program.window("View Data for aa")
        wait_for(lambda: self.desktop.frame(data)[2] == 1024, "the size of the data window")
        self.actions.close(data)
        self.press(SCRIPT, "aa")
        script = self.program.window("View Scripts for aa")
        self.desktop.activate(script)
        for point in FILE, TEXT:
            self.program.click(script, point, self.results.menu)
        self.desktop.keys("ctrl+a", "ctrl+c")
        wait_for(lambda: self.desktop.clipboard() == self.source.read_bytes(), "the text")
        # A file that goes in between ends the program, with nothing saved.
        self.source.unlink()
        settings = self.home.settings.read_bytes()
        self.program.click(script, (FILE[0], FILE[1] + 18), self.results.menu)
        self.program.window("Bracken Lens")
        self.desktop.keys("Return")
        self.assertNotEqual(self.program.ended(), 0)
        self.assertEqual(self.home.settings.read_bytes(), settings)

    def test_installed_program_finds_its_converter(self):
        place = self.folder / "installed"
        subprocess.run(["cmake", "--install", BINARY.parents[1], "--prefix", place], check=True,
                       stdout=subprocess.DEVNULL)
        # Lies among the commands by the same name, and does nothing.
        (place / "bin/plutil").symlink_to("/bin/true")
        before = {"remember": True, "host": "localhost", "user": "somebody", "extensions": "a & <b>",
                  "other": [{"left": -5, "open": False}, b"\0\1"]}
        self.home.settings.write_bytes(plistlib.dumps(before, fmt=plistlib.FMT_BINARY))
        # Stores the login, whether or not it works.
        self.login(None, place / "bin/bracken-lens").press(programs.CONNECT)
        self.program.answer_box()
        saved = plistlib.loads(self.home.settings.read_bytes(), fmt=plistlib.FMT_BINARY)
        self.assertEqual({name: saved.get(name) for name in before}, before)


if __name__ == "__main__":
    BINARY = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main(verbosity=2)
