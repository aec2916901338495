#!/usr/bin/python3
"""Walks from login to results as assistive programs do, by roles, names and relations over AT-SPI,
without a click or a key, on X11 and on Wayland.

    dbus-run-session -- test_access.py PROGRAM [UNITTEST-ARGUMENT...]
"""

import pathlib
import sys
import tempfile
import unittest

import desktop as desktops
import gi
import program as programs
import sample
import server as servers
from waiting import wait_for

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

BINARY = None


def children(node):
    return [child for at in range(node.get_child_count()) if (child := node.get_child_at_index(at))]


def shown_below(node):
    for child in children(node):
        if child.get_state_set().contains(Atspi.StateType.SHOWING):
            yield child
            yield from shown_below(child)


def label(node):
    """The name of what labels it."""
    return next((relation.get_target(0).get_name() for relation in node.get_relation_set()
                 if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY), "")


class Access(unittest.TestCase):
    def registered(self):
        return next((program for program in children(Atspi.get_desktop(0))
                     if program.get_process_id() == self.process.pid), None)

    def find(self, role, name, named=Atspi.Accessible.get_name):
        def found():
            try:
                return next((node for node in shown_below(self.program)
                             if node.get_role_name() == role and named(node) == name), None)
            except GLib.GError:
                return None  # A window went in between.
        return wait_for(found, f'a {role} "{name}"')

    def fill(self, role, name, text):
        Atspi.EditableText.set_text_contents(self.find(role, name, label), text)

    def press(self, *names, role="push button"):
        for name in names:
            node = self.find(role, name)
            wait_for(lambda: node.get_state_set().contains(Atspi.StateType.SENSITIVE), name)
            Atspi.Action.do_action(node, 0)

    def walk(self, desktop):
        chosen = sample.sample()
        server = self.enterContext(servers.Server())
        server.load(chosen.database, chosen.script)
        home = programs.Home(self.enterContext(tempfile.TemporaryDirectory(prefix="lens-home-")))
        settings = programs.settings_text("", chosen.extensions, chosen.database)
        home.remember(settings.replace("<true/>", "<false/>"))
        desktop.environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        program = self.enterContext(programs.Program(BINARY, desktop, home, "/nowhere"))
        self.process = program.process
        self.program = wait_for(self.registered, "the program to register")
        # What the library keeps would have to be brought up to date by a main loop.
        self.program.set_cache_mask(Atspi.Cache.NONE)

        self.fill("text", "Host", f" {server.socket} ")
        self.fill("text", "Username", servers.USER)
        self.fill("password text", "Password", servers.PASSWORD)
        self.press("Connect")
        self.assertEqual(self.find("combo box", "Database", label).get_name(), chosen.database)
        self.press("Select Folder to Search")
        self.fill("text", "Directory:", str(chosen.sources))
        self.press("Choose")
        self.find("label", str(chosen.sources))
        self.press("Go!", "OK")
        cells = [cell.get_name() for cell in children(self.find("table", "Results"))
                 if cell.get_role_name() == "table cell"]
        self.assertEqual(cells, [text.decode() for row in chosen.rows(server.tables(chosen.database))
                                 for text in row[:2]])
        self.press("File", "Quit", role="menu item")
        self.assertEqual(program.ended(), 0)

    def test_on_x11(self):
        self.walk(self.enterContext(desktops.Desktop()))

    def test_on_wayland(self):
        self.walk(self.enterContext(desktops.WaylandDesktop()))


if __name__ == "__main__":
    BINARY = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main(verbosity=2)
