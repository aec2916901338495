"""A display without a screen, with a window manager; clicks and keys as a user makes them."""

import os
import pathlib
import re
import shutil
import subprocess
import tempfile

from waiting import wait_for

WIDTH, HEIGHT = 1280, 900


class Desktop:
    """Runs within a `with` block; everything on it is ended with it."""

    size = WIDTH, HEIGHT  # of the screen, in pixels

    def __init__(self):
        self.folder = tempfile.mkdtemp(prefix="lens-desktop-")
        self.environment = dict(os.environ)
        self.processes = []

    def __enter__(self):
        try:
            self._start_display()
            self._start_window_manager()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for process in reversed(self.processes):
            process.terminate()
            process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    def _start(self, command, **options):
        self.processes.append(subprocess.Popen(
            command, start_new_session=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
            **options))

    def _start_display(self):
        reader, writer = os.pipe()
        width, height = self.size
        # The server picks a free display itself and writes its number.
        self._start(["Xvfb", "-displayfd", str(writer), "-screen", "0", f"{width}x{height}x24",
                     "-nolisten", "tcp", "-noreset"], pass_fds=[writer])
        os.close(writer)
        with os.fdopen(reader) as numbers:
            number = numbers.readline().strip()
        if not number:
            raise RuntimeError("Xvfb did not start")
        self.environment["DISPLAY"] = ":" + number
        self.environment.pop("WAYLAND_DISPLAY", None)

    def _start_window_manager(self):
        # With a home of its own it takes the settings that come with it, not the user's.
        environment = {**self.environment, "HOME": self.folder, "XDG_CONFIG_HOME": self.folder}
        self._start(["openbox"], env=environment)
        wait_for(lambda: b"window id" in self.ask("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"),
                 "the window manager")

    def ask(self, *command, text=None):
        """Runs a command on this display and gives its output; empty if it fails."""
        done = subprocess.run(command, env=self.environment, input=text, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL)
        return done.stdout if done.returncode == 0 else b""

    def keys(self, *names):
        self.ask("xdotool", "key", "--clearmodifiers", *names)

    def type(self, text):
        self.ask("xdotool", "type", "--delay", "5", text)

    def click(self, x, y):
        """Presses the left button at a point of the screen."""
        self.ask("xdotool", "mousemove", "--sync", str(x), str(y), "click", "1")

    def windows(self):
        """Visible top-level windows of programs, by id, as the window manager lists them."""
        listed = self.ask("xprop", "-root", "_NET_CLIENT_LIST").decode()
        return [int(word, 16) for word in listed.split("#")[-1].replace(",", " ").split()
                if word.startswith("0x")]

    def title(self, window):
        return self.ask("xdotool", "getwindowname", str(window)).decode().strip()

    def frame(self, window):
        """Left, top, width and height of the window's inside on the screen; None if it is gone."""
        text = self.ask("xwininfo", "-id", str(window)).decode()
        names = ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")
        found = [re.search(rf"{name}: +(-?\d+)", text) for name in names]
        return tuple(int(match[1]) for match in found) if all(found) else None

    def activate(self, window):
        self.ask("xdotool", "windowactivate", "--sync", str(window))

    def picture(self, file, window="root"):
        self.ask("import", "-window", str(window), str(file))

    def clipboard(self):
        return self.ask("xclip", "-selection", "clipboard", "-out", "-target", "UTF8_STRING")


class WaylandDesktop(Desktop):
    """A compositor of Wayland without screen, mouse or keys; nothing can be sent to its windows."""

    def _start_display(self):
        socket = pathlib.Path(self.folder) / "wayland"
        # The toolkit's own way to take in text falls over where there are no keys at all.
        self.environment |= {"WAYLAND_DISPLAY": str(socket), "XDG_RUNTIME_DIR": self.folder,
                             "QT_QPA_PLATFORM": "wayland", "QT_IM_MODULE": "compose"}
        self.environment.pop("DISPLAY", None)
        self._start(["weston", "--backend=headless-backend.so", "--no-config", "--idle-time=0",
                     f"--socket={socket.name}", f"--width={WIDTH}", f"--height={HEIGHT}"],
                    env=self.environment)
        wait_for(socket.exists, "the compositor")

    def _start_window_manager(self):
        """It is the compositor itself."""
