#!/usr/bin/env python3
"""Drives what one does with the results by clicks and keys: export, report, drop, view data.

    test_actions.py PROGRAM [UNITTEST-ARGUMENT...]
"""

import pathlib
import sys
import unittest

from after_a_run import AfterARun
from result_actions import BOX, DATA, DROP, NO, PRINT, YES, exported, report
from waiting import wait_for

TABLES = "create table aa (id int); create table `c d` (id int); create table zz (id int);"
NAMES = ["aa", "c d", "zz"]
ROWS = [(name.encode(), b"<i>&.php," if name == "aa" else b"Not Found Yet") for name in NAMES]


class ActionsTest(AfterARun):
    tables, names = TABLES, NAMES
    sources = {"<i>&.php": "select * from aa"}

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
        self.assertEqual(self.ended(), 0)
        # Ticked with Yes, the box is remembered: nobody is asked any more.
        self.start()
        self.press(PRINT)
        self.browser.await_opened(3)

    def drop(self, table, *keys):
        self.select(table)
        self.press(DROP)
        window = self.dialog()
        self.desktop.keys(*keys)
        self.gone(window)

    def test_drop(self):
        for no in (["Escape"], ["Return"], ["alt+n"]):
            self.drop("aa", *no)
            self.assertEqual(self.in_server(), NAMES)
        self.server.run("drop table zz", "deeds")
        self.drop("zz", "alt+y")
        self.dialog()
        self.program.answer_box()
        self.assertEqual(self.shown(), NAMES)
        self.drop("aa", "alt+y")
        wait_for(lambda: "aa" not in self.in_server(), "the table to go")
        self.assertEqual(self.shown(), NAMES[1:])

    def test_data(self):
        self.select("c d")
        self.press(DATA)
        window = self.program.window("View Data for c d")
        wait_for(lambda: self.desktop.frame(window)[2] == 1024, "the size of the data window")
        self.actions.close(window)


if __name__ == "__main__":
    AfterARun.binary = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main(verbosity=2)
