#!/usr/bin/env python3
"""Drives what one does with the results by clicks and keys: export, report, drop, view data.

    test_actions.py PROGRAM [UNITTEST-ARGUMENT...]
"""

import os
import pathlib
import sys
import tempfile
import unittest

import desktop as desktops
import program as programs
import server as servers
from result_actions import (BOX, DATA, DROP, NO, PRINT, SCRIPT, YES, Actions, Browser, exported,
                            report)
from waiting import wait_for

BINARY = None

def wide(count):
    columns = ",".join(f"c{number} int default {number}" for number in range(1, count + 1))
    return f"create table `w{count}` ({columns}); insert into `w{count}` () values ();"


TABLES = """
create table `aa` (id int, title varchar(40));
insert into `aa` values (1, 'x'), (12345, 'abcdefghijklmnopqrst');
create table `b``tick` (id int);
create table `c d` (id int, v blob);
insert into `c d` values (1, x'00ff41'), (2, null);
create table `one` (id int);
insert into `one` values (1);
create table `types` (k int, i tinyint, u bigint unsigned, d decimal(9,3), f double, b bit(8), t date,
    n datetime(6), y year, m time, c char(3), x varbinary(4), l longtext, e enum('p','q'), s set('p','q'),
    g point, j json);
insert into `types` values (1, -1, 18446744073709551615, 1.5, 0.1, b'101', '2026-01-02',
    '2026-01-02 03:04:05.678901', 2026, '-01:02:03', 'é', x'00ff0a09', 'long', 'q', 'p,q', point(1,2), '[1]');
insert into `types` (k) values (2);
create table `zz` (id int);
""" + wide(25) + wide(26) + wide(400)
NAMES = ["aa", "b`tick", "c d", "one", "types", "w25", "w26", "w400", "zz"]
ROWS = [(name.encode(), b"<i>&.php," if name == "aa" else b"Not Found Yet") for name in NAMES]


class ActionsTest(unittest.TestCase):
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
        self.browser = Browser(self.home)
        self.start()

    def start(self):
        self.program = self.enterContext(
            programs.Program(BINARY, self.desktop, self.home, self.server.socket))
        login = programs.LoginWindow(self.program)
        login.connect("folder")
        login.go()
        self.results = programs.ResultsWindow(self.program)
        self.program.answer_box()
        self.actions = Actions(self.program, self.results)
        self.press, self.gone = self.actions.press, self.actions.gone

    def picture(self, name):
        if folder := os.environ.get("PICTURES"):
            self.desktop.picture(pathlib.Path(folder) / f"{name}.png")

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

    def question(self, dialog):
        """The question about a file that is there, active."""
        window = wait_for(lambda: self.program.find(
            lambda w: w not in (dialog, self.results.window)
            and self.desktop.title(w) == "Export as CSV"), "the question")
        self.desktop.activate(window)
        return window

    def test_export(self):
        file = self.folder / "list"
        self.actions.export(file)
        self.assertEqual(file.read_bytes(), exported(ROWS))

        # No to the question leaves the file that is there, Yes replaces it.
        file.write_text("old")
        dialog = self.actions.type_export(file)
        question = self.question(dialog)
        self.picture("overwrite")
        self.desktop.keys("alt+n")
        self.gone(question)
        self.desktop.activate(dialog)
        self.desktop.keys("Escape")
        self.gone(dialog)
        self.assertEqual(file.read_text(), "old")
        dialog = self.actions.type_export(file)
        self.question(dialog)
        self.desktop.keys("alt+y")
        self.gone(dialog)
        self.program.answer_box()
        self.assertEqual(file.read_bytes(), exported(ROWS))

    def test_report(self):
        page = self.folder / "data/Bracken Lens/report.html"
        self.press(PRINT)
        self.actions.confirm(BOX, NO)
        self.assertFalse(page.exists())
        self.press(PRINT)
        self.actions.confirm(YES)
        self.assertEqual(self.browser.await_opened(1), str(page))
        self.assertEqual(page.read_bytes(), report(ROWS))
        self.press(PRINT)
        self.actions.confirm(BOX, YES)
        self.browser.await_opened(2)
        self.desktop.activate(self.results.window)
        self.desktop.keys("ctrl+q")
        wait_for(lambda: self.program.process.poll() is not None, "the program to end")
        # Ticked with Yes, the box is remembered: nobody is asked any more.
        self.start()
        self.press(PRINT)
        self.browser.await_opened(3)

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

    def test_drop_without_the_privilege(self):
        self.server.run(f"revoke drop on *.* from '{servers.USER}'@'localhost'")
        self.desktop.activate(self.results.window)
        self.desktop.keys("ctrl+q")
        wait_for(lambda: self.program.process.poll() is not None, "the program to end")
        self.start()
        self.drop("aa", "alt+y")
        self.dialog()
        self.picture("drop-denied")
        self.program.answer_box()
        self.assertEqual(self.in_server(), NAMES)
        self.assertEqual(self.shown(), NAMES)

    def test_data(self):
        for table in ("aa", "c d", "one", "types", "w25", "w26", "w400", "zz"):
            self.select(table)
            self.press(DATA)
            window = self.program.window(f"View Data for {table}")
            wait_for(lambda: self.desktop.frame(window)[2] == 1024, "the size of the data window")
            self.picture(f"data-{table}")
            self.desktop.activate(window)
            self.desktop.keys("ctrl+w")
            self.gone(window)

    def test_script(self):
        self.select("aa")
        self.press(SCRIPT)
        window = self.program.window("View Scripts for aa")
        wait_for(lambda: self.desktop.frame(window)[2] == 798, "the size of the script window")
        self.desktop.activate(window)
        menu = self.results.menu
        self.program.click(window, (60, 66), menu)
        self.program.click(window, (300, 300), menu)
        self.desktop.keys("ctrl+a", "ctrl+c")
        wait_for(lambda: self.desktop.clipboard() == b"select * from aa", "the script's text")
        self.program.click(window, (300, 300), menu)
        self.picture("script")
        self.program.click(window, (738, 616), menu)
        self.gone(window)


if __name__ == "__main__":
    BINARY = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main(verbosity=2)
