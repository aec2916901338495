#!/usr/bin/env python3
"""Drives what one does with the results by clicks and keys: export, report, drop, view data.

    test_actions.py PROGRAM [UNITTEST-ARGUMENT...]
"""

import os
import pathlib
import sys
import tempfile
import unittest
import urllib.parse

import desktop as desktops
import program as programs
import server as servers
from waiting import wait_for

BINARY = None

EXPORT, PRINT, DROP, DATA = (630, 393), (520, 393), (70, 393), (180, 393)
YES, NO, BOX = (357, 89), (255, 89), (24, 89)
CONFIRM = "Untitled"

TABLES = """
create table `aa` (id int, title varchar(40));
insert into `aa` values (1, 'x'), (12345, 'abcdefghijklmnopqrst');
create table `b``tick` (id int);
create table `c d` (id int, v blob);
insert into `c d` values (1, x'00ff41'), (2, null);
create table `zz` (id int);
create table `w26` (%s);
insert into `w26` () values ();
""" % ",".join(f"c{number} int default {number}" for number in range(1, 27))
NAMES = ["aa", "b`tick", "c d", "w26", "zz"]


class Actions(unittest.TestCase):
    """A server, a home, sources and a program that has run to its end, for each test."""

    def setUp(self):
        self.desktop = self.enterContext(desktops.Desktop())
        self.server = self.enterContext(servers.Server())
        self.server.run("create database deeds")
        self.server.run(TABLES, "deeds")
        self.folder = pathlib.Path(self.enterContext(
            tempfile.TemporaryDirectory(prefix="lens-home-")))
        self.home = programs.Home(self.folder)
        sources = self.folder / "sources"
        sources.mkdir()
        (sources / "<i>&.php").write_text("select * from aa")
        self.home.remember(programs.settings_text(sources, "", "deeds"))
        self.make_browser()
        self.start()

    def make_browser(self):
        """A default browser that writes down what it is given."""
        recorder = self.folder / "recorder"
        recorder.write_text(f'#!/bin/sh\necho "$1" >>"{self.folder}/opened"\n')
        recorder.chmod(0o755)
        applications = self.folder / "data/applications"
        applications.mkdir()
        (applications / "recorder.desktop").write_text(
            f"[Desktop Entry]\nType=Application\nName=Recorder\nExec={recorder} %u\n")
        (self.folder / "config/mimeapps.list").write_text(
            "[Default Applications]\nx-scheme-handler/https=recorder.desktop\n")

    def opened(self):
        record = self.folder / "opened"
        return record.read_text().splitlines() if record.exists() else []

    def start(self):
        self.program = self.enterContext(
            programs.Program(BINARY, self.desktop, self.home, self.server.socket))
        login = programs.LoginWindow(self.program)
        login.connect("folder")
        login.go()
        self.results = programs.ResultsWindow(self.program)
        self.program.answer_box()

    def picture(self, name):
        if folder := os.environ.get("PICTURES"):
            self.desktop.picture(pathlib.Path(folder) / f"{name}.png")

    def press(self, point):
        self.program.click(self.results.window, point, self.results.menu)

    def select(self, table):
        self.desktop.activate(self.results.window)
        self.press((programs.LIST[0] + 60, programs.LIST[1] + 40))
        self.desktop.keys("ctrl+Home", *["Down"] * NAMES.index(table))

    def shown(self):
        return [row[0].decode() for row in self.results.rows()]

    def in_server(self):
        return [name.decode() for name in self.server.tables("deeds")]

    def dialog(self):
        """A window of the program beside Login and Results, active."""
        window = self.program.box()
        self.desktop.activate(window)
        return window

    def gone(self, window):
        wait_for(lambda: window not in self.desktop.windows(), "the dialog to go")

    def press_in_confirm(self, *points):
        window = self.program.window(CONFIRM)
        self.picture("confirm")
        for point in points:
            self.program.click(window, point, 0)
        self.gone(window)

    def save_as(self, path):
        self.press(EXPORT)
        window = self.dialog()
        self.desktop.keys("ctrl+a")
        self.desktop.type(str(path))
        self.picture("save")
        self.desktop.keys("Return")
        return window

    def test_export(self):
        expected = "".join(
            f"{name}\t{'<i>&.php,' if name == 'aa' else 'Not Found Yet'}\n" for name in NAMES)
        file = self.folder / "list"
        self.gone(self.save_as(file))
        self.program.answer_box()
        self.assertEqual(file.read_text(), expected)

        # The question about a file that is there: No leaves it, Yes replaces it.
        file.write_text("old")
        dialog = self.save_as(file)
        question = wait_for(lambda: self.program.find(
            lambda w: w not in (dialog, self.results.window)
            and self.desktop.title(w) == "Export as CSV"), "the question")
        self.desktop.activate(question)
        self.picture("overwrite")
        self.desktop.keys("alt+n")
        self.gone(question)
        self.desktop.activate(dialog)
        self.desktop.keys("Escape")
        self.gone(dialog)
        self.assertEqual(file.read_text(), "old")
        dialog = self.save_as(file)
        question = wait_for(lambda: self.program.find(
            lambda w: w not in (dialog, self.results.window)
            and self.desktop.title(w) == "Export as CSV"), "the question")
        self.desktop.activate(question)
        self.desktop.keys("alt+y")
        self.gone(dialog)
        self.program.answer_box()
        self.assertEqual(file.read_text(), expected)

    def test_report(self):
        report = self.folder / "data/Bracken Lens/report.html"
        self.press(PRINT)
        self.press_in_confirm(BOX, NO)
        self.assertFalse(report.exists())
        self.press(PRINT)
        self.press_in_confirm(YES)
        wait_for(lambda: len(self.opened()) == 1, "the browser")
        opened = urllib.parse.urlparse(self.opened()[0])
        self.assertEqual(urllib.parse.unquote(opened.path), str(report))
        rows = "".join(
            f"<tr><td>{name}</td><td>{'<i>&.php,' if name == 'aa' else 'Not Found Yet'}</td></tr>"
            for name in NAMES)
        self.assertEqual(report.read_text(),
                         "<html><bod><table cellspacing=0 border><tr><th>Table</th>"
                         f"<th>Found In</th></tr>{rows}</table></body></html>")
        self.press(PRINT)
        self.press_in_confirm(BOX, YES)
        wait_for(lambda: len(self.opened()) == 2, "the browser")
        self.desktop.activate(self.results.window)
        self.desktop.keys("ctrl+q")
        wait_for(lambda: self.program.process.poll() is not None, "the program to end")
        self.start()
        self.press(PRINT)
        wait_for(lambda: len(self.opened()) == 3, "the browser, with no question")

    def drop(self, table, *keys):
        self.select(table)
        self.press(DROP)
        window = self.dialog()
        self.picture("drop")
        self.desktop.keys(*keys)
        self.gone(window)

    def test_drop(self):
        for no in (["Escape"], ["Return"], ["alt+n"]):
            self.drop("aa", *no)
            self.assertEqual(self.in_server(), NAMES)
        self.drop("b`tick", "alt+y")
        self.dialog()
        self.picture("drop-refused")
        self.program.answer_box()
        self.assertEqual(self.shown(), NAMES)
        self.server.run("drop table zz", "deeds")
        self.drop("zz", "alt+y")
        self.program.answer_box()
        self.assertEqual(self.shown(), NAMES)
        self.drop("aa", "alt+y")
        wait_for(lambda: "aa" not in self.in_server(), "the table to go")
        self.assertEqual(self.shown(), NAMES[1:])
        self.picture("dropped")

    def test_data(self):
        for table in ("aa", "c d", "w26", "zz"):
            self.select(table)
            self.press(DATA)
            window = self.program.window(f"View Data for {table}")
            wait_for(lambda: self.desktop.frame(window)[2] == 1024, "the size of the data window")
            self.picture(f"data-{table}")
            self.desktop.activate(window)
            self.desktop.keys("ctrl+w")
            self.gone(window)


if __name__ == "__main__":
    BINARY = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main(verbosity=2)
