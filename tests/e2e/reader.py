"""A program as assistive programs get it: by roles, names and relations, over AT-SPI."""

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402
from waiting import wait_for  # noqa: E402


def children(node):
    return [child for at in range(node.get_child_count()) if (child := node.get_child_at_index(at))]


def label(node):
    """The name of what labels it."""
    return next((relation.get_target(0).get_name() for relation in node.get_relation_set()
                 if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY), "")


class Reader:
    """Finds what is on the screen and acts on it."""

    def __init__(self, process):
        self.program = wait_for(lambda: self._registered(process.pid), "the program to register")
        # What the library keeps would have to be brought up to date by a main loop.
        self.program.set_cache_mask(Atspi.Cache.NONE)

    def _registered(self, pid):
        return next((program for program in children(Atspi.get_desktop(0))
                     if program.get_process_id() == pid), None)

    def _below(self, node):
        for child in children(node):
            if child.get_state_set().contains(Atspi.StateType.SHOWING):
                yield child
                yield from self._below(child)

    def find(self, role, name, named=Atspi.Accessible.get_name):
        def found():
            try:
                return next((node for node in self._below(self.program)
                             if node.get_role_name() == role and named(node) == name), None)
            except GLib.GError:
                return None  # A window went in between.
        return wait_for(found, f'a {role} "{name}"')

    def fill(self, role, name, text):
        Atspi.EditableText.set_text_contents(self.find(role, name, label), text)

    def press(self, role, name):
        node = self.find(role, name)
        wait_for(lambda: node.get_state_set().contains(Atspi.StateType.SENSITIVE), f"{name} to be enabled")
        Atspi.Action.do_action(node, 0)

    def rows(self, name):
        """The cells of a table, row by row."""
        table = self.find("table", name)
        columns = Atspi.Table.get_n_columns(table)
        cells = [cell.get_name() for cell in children(table)
                 if cell.get_role_name() == "table cell"]
        return [cells[at:at + columns] for at in range(0, len(cells), columns)]
