#!/usr/bin/python3
"""Walks from login to results as assistive programs do, without a click or a key, on X11 and on
Wayland.

    dbus-run-session -- test_access.py PROGRAM [UNITTEST-ARGUMENT...]
"""

import pathlib
import sys
import tempfile
import unittest

import desktop as desktops
import program as programs
import sample
import server as servers
from reader import Reader, label
from waiting import wait_for

BINARY = None


class Access(unittest.TestCase):
    def walk(self, desktop):
        chosen = sample.sample()
        server = self.enterContext(servers.Server())
        server.load(chosen.database, chosen.script)
        home = programs.Home(self.enterContext(tempfile.TemporaryDirectory(prefix="lens-home-")))
        settings = programs.settings_text("", chosen.extensions, chosen.database)
        home.remember(settings.replace("<true/>", "<false/>"))
        desktop.environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        program = self.enterContext(programs.Program(BINARY, desktop, home, "/nowhere"))

        reader = Reader(program.process)
        reader.find("frame", "Login")
        reader.fill("text", "Host", f" {server.socket} ")
        reader.fill("text", "Username", servers.USER)
        reader.fill("password text", "Password", servers.PASSWORD)
        reader.press("push button", "Connect")
        self.assertEqual(reader.find("combo box", "Database", label).get_name(), chosen.database)
        reader.press("push button", "Select Folder to Search")
        reader.fill("text", "Directory:", str(chosen.sources))
        reader.press("push button", "Choose")
        reader.find("label", str(chosen.sources))
        reader.press("push button", "Go!")
        reader.find("frame", "Results")
        reader.press("push button", "OK")
        wanted = [[text.decode() for text in row[:2]]
                  for row in chosen.rows(server.tables(chosen.database))]
        self.assertEqual(reader.rows("Results"), wanted)
        reader.press("menu item", "File")
        reader.press("menu item", "Quit")
        wait_for(lambda: program.process.poll() is not None, "the program to end")
        self.assertEqual(program.process.returncode, 0)

    def test_on_x11(self):
        self.walk(self.enterContext(desktops.Desktop()))

    def test_on_wayland(self):
        self.walk(self.enterContext(desktops.WaylandDesktop()))


if __name__ == "__main__":
    BINARY = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main(verbosity=2)
