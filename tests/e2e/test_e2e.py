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
import server as servers
from result_actions import DATA, DROP, PRINT, SCRIPT, YES, Actions, Browser
from waiting import wait_for

BINARY = None
# Points in the content of the window of scripts.
FILE, TEXT = (60, 59), (300, 500)


class Clicks(unittest.TestCase):
    def setUp(self):
        self.desktop = self.enterContext(desktops.Desktop())
        self.folder = pathlib.Path(self.enterContext(
            tempfile.TemporaryDirectory(prefix="lens-home-")))
        self.home = programs.Home(self.folder)

    def login(self, binary, socket):
        self.program = self.enterContext(
            programs.Program(binary, self.desktop, self.home, socket))
        return programs.LoginWindow(self.program)

    def test_login_to_actions(self):
        browser = Browser(self.home)
        source = self.folder / "sources/<i>&.php"
        source.parent.mkdir()
        source.write_text("select * from aa\n" * 90 + "AA")
        server = self.enterContext(servers.Server())
        server.run("create database deeds")
        server.run("create table aa (id int); create table `c d` (id int)", "deeds")
        self.home.remember(programs.settings_text(source.parent, ""))
        login = self.login(BINARY, server.socket)
        login.connect("database")
        login.choose("deeds")
        login.go()
        results = programs.ResultsWindow(self.program)
        self.program.answer_box()
        actions = Actions(self.program, results)

        file = self.folder / "list"
        actions.export(file)
        self.assertEqual(file.read_bytes(), b"aa\t<i>&.php,\nc d\tNot Found Yet\n")
        actions.press(PRINT)
        actions.confirm(YES)
        page = pathlib.Path(browser.await_opened())
        self.assertIn(b"<td>aa</td><td><i>&.php,</td>", page.read_bytes())

        actions.press((programs.LIST[0] + 60, programs.LIST[1] + 40))
        self.desktop.keys("ctrl+Home")
        actions.press(DATA)
        actions.close(self.program.window("View Data for aa"))
        actions.press(SCRIPT)
        script = self.program.window("View Scripts for aa")
        self.desktop.activate(script)
        for point in FILE, TEXT:
            self.program.click(script, point, results.menu)
        self.desktop.keys("ctrl+a", "ctrl+c")
        wait_for(lambda: self.desktop.clipboard() == source.read_bytes(), "the text")
        actions.close(script)

        # Neither Escape nor Return drops it, or one would go too many.
        for key in "Escape", "Return", "alt+y":
            actions.press(DROP)
            box = self.program.box()
            self.desktop.activate(box)
            self.desktop.keys(key)
            actions.gone(box)
        wait_for(lambda: b"aa" not in server.tables("deeds"), "the table to go")
        self.desktop.activate(results.window)
        self.desktop.keys("ctrl+q")
        self.assertEqual(self.program.ended(), 0)
        self.assertEqual(stat.S_IMODE(self.home.settings.stat().st_mode), 0o600)
        self.assertEqual(server.tables("deeds"), [b"c d"])

    def test_installed_program_finds_its_converter(self):
        place = self.folder / "installed"
        subprocess.run(["cmake", "--install", BINARY.parents[1], "--prefix", place], check=True,
                       stdout=subprocess.DEVNULL)
        # Lies among the commands by the same name, and does nothing.
        (place / "bin/plutil").symlink_to("/bin/true")
        before = {"remember": True, "host": "localhost", "user": "somebody", "extensions": "a & <b>",
                  "other": [{"left": -5, "open": False}, b"\0\1"]}
        self.home.settings.write_bytes(plistlib.dumps(before, fmt=plistlib.FMT_BINARY))
        # Stores the login, though it fails.
        self.login(place / "bin/bracken-lens", "/nowhere").press(programs.CONNECT)
        self.program.answer_box()
        saved = plistlib.loads(self.home.settings.read_bytes(), fmt=plistlib.FMT_BINARY)
        self.assertEqual({name: saved.get(name) for name in before}, before)


if __name__ == "__main__":
    BINARY = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main(verbosity=2)
