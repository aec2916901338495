"""The state in which one uses the results: a run has come to its end."""

import pathlib
import tempfile
import unittest

import desktop as desktops
import program as programs
import server as servers
from result_actions import Actions, Browser
from waiting import wait_for


class AfterARun(unittest.TestCase):
    """A server, a home, sources and a program that has run to its end, for each test."""

    binary = None
    tables = ""   # SQL that makes the database
    names = []    # of its tables, in the order of the list
    sources = {}  # texts by path, as text or bytes

    def setUp(self):
        self.desktop = self.enterContext(desktops.Desktop())
        self.server = self.enterContext(servers.Server())
        self.server.run("create database deeds")
        self.server.run(self.tables, "deeds")
        self.folder = pathlib.Path(self.enterContext(
            tempfile.TemporaryDirectory(prefix="lens-home-")))
        self.home = programs.Home(self.folder)
        for name, text in self.sources.items():
            self.source(name).parent.mkdir(parents=True, exist_ok=True)
            self.source(name).write_bytes(text if isinstance(text, bytes) else text.encode())
        self.home.remember(programs.settings_text(self.source(""), "", "deeds"))
        self.browser = Browser(self.home)
        self.start()

    def source(self, name):
        return self.folder / "sources" / name

    def start(self):
        self.program = self.enterContext(
            programs.Program(self.binary, self.desktop, self.home, self.server.socket))
        login = programs.LoginWindow(self.program)
        login.connect("folder")
        login.go()
        self.results = programs.ResultsWindow(self.program)
        self.program.answer_box()
        self.actions = Actions(self.program, self.results)
        self.press, self.gone = self.actions.press, self.actions.gone

    def ended(self):
        """The status with which the program ends."""
        wait_for(lambda: self.program.process.poll() is not None, "the program to end")
        return self.program.process.returncode

    def select(self, table):
        self.desktop.activate(self.results.window)
        self.press((programs.LIST[0] + 60, programs.LIST[1] + 40))
        self.desktop.keys("ctrl+Home", *["Down"] * self.names.index(table))
