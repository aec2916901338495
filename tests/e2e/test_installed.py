#!/usr/bin/env python3
"""Installs the built program and lets it change a settings file in binary form.

    test_installed.py BUILD-FOLDER [UNITTEST-ARGUMENT...]
"""

import os
import plistlib
import subprocess
import sys
import tempfile
import unittest

import desktop as desktops
import program as programs

BUILD = None


class Installed(unittest.TestCase):
    def test_private_converter_is_found(self):
        folder = self.enterContext(tempfile.TemporaryDirectory(prefix="lens-installed-"))
        subprocess.run(["cmake", "--install", BUILD, "--prefix", folder], check=True,
                       stdout=subprocess.DEVNULL)
        desktop = self.enterContext(desktops.Desktop())
        # Lies among the commands by the same name, and does nothing.
        os.symlink("/bin/true", f"{folder}/bin/plutil")
        home = programs.Home(folder)
        before = {"remember": True, "host": "localhost", "user": "somebody", "extensions": "a & <b>",
                  "other": [{"left": -5, "open": False}, b"\0\1"]}
        home.settings.write_bytes(plistlib.dumps(before, fmt=plistlib.FMT_BINARY))

        program = self.enterContext(
            programs.Program(f"{folder}/bin/bracken-lens", desktop, home, "/nowhere"))
        # Stores the login, whether or not it works.
        programs.LoginWindow(program).press(programs.CONNECT)
        program.answer_box()
        saved = plistlib.loads(home.settings.read_bytes(), fmt=plistlib.FMT_BINARY)
        self.assertEqual({name: saved.get(name) for name in before}, before)


if __name__ == "__main__":
    BUILD = sys.argv.pop(1)
    unittest.main(verbosity=2)
