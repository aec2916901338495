#!/usr/bin/env python3
"""Drives the built program by clicks and keys: login to results, and a second start.

    test_e2e.py PROGRAM [UNITTEST-ARGUMENT...]
"""

import pathlib
import stat
import sys
import tempfile
import unittest

import desktop as desktops
import program as programs
import sample
import server as servers
from waiting import wait_for

BINARY = None


class Road(unittest.TestCase):
    """One server and one desktop for all tests; a home and a copy of the sources for each."""

    @classmethod
    def setUpClass(cls):
        cls.chosen = sample.sample()
        cls.server = cls.enterClassContext(servers.Server())
        cls.server.load(cls.chosen.database, cls.chosen.script)
        cls.desktop = cls.enterClassContext(desktops.Desktop())
        cls.wanted = [list(row) for row in cls.chosen.rows(cls.server.tables(cls.chosen.database))]

    def setUp(self):
        folder = self.enterContext(tempfile.TemporaryDirectory(prefix="lens-home-"))
        self.home = programs.Home(folder)

    def remember(self, **changes):
        text = programs.settings_text(self.chosen.sources, self.chosen.extensions, **changes)
        self.home.remember(text)

    def start(self):
        program = programs.Program(BINARY, self.desktop, self.home, self.server.socket)
        return self.enterContext(program)

    def run_to_the_end(self, program):
        results = programs.ResultsWindow(program)
        program.answer_box()
        return results

    def quit(self, program):
        self.desktop.keys("ctrl+q")
        wait_for(lambda: program.process.poll() is not None, "the program to end")
        self.assertEqual(program.process.returncode, 0)

    def test_login_to_results_and_again(self):
        self.remember()
        program = self.start()
        login = programs.LoginWindow(program)
        login.connect("database")
        login.choose(self.chosen.database)
        login.go()
        results = self.run_to_the_end(program)
        self.assertEqual(results.rows(), self.wanted)
        self.desktop.place(results.window, 211, 144, 640, 380)
        left = self.desktop.frame(results.window)
        self.quit(program)
        self.assertEqual(stat.S_IMODE(self.home.settings.stat().st_mode), 0o600)

        # The second start knows login, folder and database, and where the results stood.
        program = self.start()
        login = programs.LoginWindow(program)
        login.connect("folder")
        self.desktop.keys("Return")
        results = program.window("Results")
        wait_for(lambda: self.desktop.frame(results) == left, f"the frame {left}")
        program.answer_box()
        self.quit(program)


if __name__ == "__main__":
    BINARY = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main(verbosity=2)
