#!/usr/bin/env python3
"""Drives the window of scripts by clicks and keys: the divider, the frame, and what can go wrong.

    test_script.py PROGRAM [UNITTEST-ARGUMENT...]
"""

import pathlib
import sys
import unittest

from after_a_run import AfterARun
from result_actions import SCRIPT
from waiting import wait_for

# Points in the window's content.
DIVIDER, TEXT = (389, 141), (300, 500)
# A column of pixels that only list and text cross, and one where nothing is.
CROSSED, BARE = 600, 4


def row(number):
    return 60, 59 + 18 * number


class ScriptTest(AfterARun):
    names = ["colon", "gone", "user"]
    tables = "".join(f"create table `{name}` (id int);" for name in names)
    sources = {"a/user.php": "the user\n" * 90 + "USERS", "b/user.inc": "no line end: superuser",
               "gone.php": "gone", "x:y/first.php": "a colon"}

    def view(self, table):
        self.select(table)
        self.press(SCRIPT)
        self.window = self.program.window(f"View Scripts for {table}")
        self.desktop.activate(self.window)

    def menu(self):
        return self.results.menu

    def click(self, point):
        self.program.click(self.window, point, self.menu())

    def copied(self):
        self.desktop.set_clipboard(b"nothing yet")
        self.desktop.keys("ctrl+c")
        wait_for(lambda: self.desktop.clipboard() not in (b"", b"nothing yet"), "a copy")
        return self.desktop.clipboard()

    def text(self, number):
        """What the window shows of the file in that row."""
        self.click(row(number))
        self.click(TEXT)
        self.desktop.keys("ctrl+a")
        return self.copied()

    def parts(self):
        """From where to where list and text reach down the window, by what is not bare."""
        menu = self.menu()
        column, bare = (self.desktop.column(self.window, x)[menu:] for x in (CROSSED, BARE))
        ends = []
        for y in (y for y, (here, ground) in enumerate(zip(column, bare)) if here != ground):
            # A pixel of a heading's slope may be like the ground.
            if ends and y - ends[-1][1] < 3:
                ends[-1][1] = y + 1
            else:
                ends.append([y, y + 1])
        return [tuple(end) for end in ends]

    def await_parts(self, *wanted):
        wait_for(lambda: self.parts() == list(wanted), f"list and text at {wanted}", 10)

    def drag(self, *tops):
        """Drags the divider by its middle, so that its top is asked to these places in turn."""
        left, top, _, _ = self.desktop.frame(self.window)
        self.desktop.hold(left + DIVIDER[0], top + self.menu() + self.divider + 8)
        for wanted, *parts in tops:
            self.desktop.move(left + DIVIDER[0], top + self.menu() + wanted + 8)
            self.await_parts(*parts)
        self.desktop.release()

    def test_divider_and_frame(self):
        self.view("user")
        self.assertEqual(self.text(0), self.sources["a/user.php"].encode())
        self.assertEqual(self.text(1), self.sources["b/user.inc"].encode())
        self.click(row(0))
        self.divider = 133
        self.await_parts((31, 131), (149, 594))
        # To and fro within one drag, past both ends: it stays at the limit, one part gone.
        self.drag((300, (31, 298), (316, 594)), (200, (31, 198), (216, 594)),
                  (700, (31, 592)), (0, (31, 594)), (31, (61, 594)),
                  (400, (31, 398), (416, 594)))
        # What changes in height is the list; the text goes down and up with the window's edge.
        menu = self.menu()
        self.desktop.place(self.window, 120, 90, 900, 740 + menu)
        self.await_parts((31, 498), (516, 694))
        frame = self.desktop.frame(self.window)
        self.desktop.keys("ctrl+w")
        self.gone(self.window)
        self.desktop.activate(self.results.window)
        self.desktop.keys("ctrl+q")
        self.assertEqual(self.ended(), 0)

        # The next start finds the frame, and the divider where a new window of that size has it.
        self.start()
        self.view("user")
        wait_for(lambda: self.desktop.frame(self.window) == frame, f"the frame {frame}")
        self.await_parts((31, 231), (249, 694))
        self.desktop.place(self.window, 120, 90, 798, 520 + menu)
        self.await_parts((31, 594 - 120))
        self.click((738, 486))
        self.gone(self.window)

    def test_what_can_go_wrong(self):
        self.view("colon")
        self.assertEqual(self.text(0), b"a colon")
        self.click(row(0))
        path = str(self.source("x:y/first.php"))
        self.assertEqual(self.copied().decode().rstrip("\n"), f"y/first.php\t{path}")
        self.view("gone")
        self.source("gone.php").unlink()
        settings = self.home.settings.read_bytes()
        self.click(row(2))
        box = self.program.window("Bracken Lens")
        self.desktop.activate(box)
        self.desktop.keys("Return")
        self.assertNotEqual(self.ended(), 0)
        self.assertEqual(self.home.settings.read_bytes(), settings, "nothing is saved")


if __name__ == "__main__":
    AfterARun.binary = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main(verbosity=2)
