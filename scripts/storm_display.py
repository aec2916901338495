"""A display, worked from within this process: a program started for each click would be too slow."""

import ctypes

CLIENT_MESSAGE, SUBSTRUCTURE_NOTIFY = 33, 1 << 19
MODIFIERS = {"ctrl": "Control_L", "alt": "Alt_L", "shift": "Shift_L"}


class ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("sent", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong),
                ("kind", ctypes.c_ulong), ("format", ctypes.c_int), ("data", ctypes.c_long * 5),
                ("rest", ctypes.c_long * 24)]


class Display:
    """Windows are numbers; one that is gone has no title and no frame."""

    def __init__(self, name):
        self.x, self.test = ctypes.CDLL("libX11.so.6"), ctypes.CDLL("libXtst.so.6")
        for call in ("XOpenDisplay", "XInternAtom", "XDefaultRootWindow", "XStringToKeysym"):
            getattr(self.x, call).restype = ctypes.c_ulong
        self.display = ctypes.c_void_p(self.x.XOpenDisplay(name.encode()))
        self.root = self.x.XDefaultRootWindow(self.display)
        # The library would end the process when it asks for a window that is gone.
        self.ignore = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)(lambda *_: 0)
        self.x.XSetErrorHandler(self.ignore)
        self.x.XSelectInput(self.display, ctypes.c_ulong(self.root), ctypes.c_long(SUBSTRUCTURE_NOTIFY))

    def atom(self, name):
        return ctypes.c_ulong(self.x.XInternAtom(self.display, name.encode(), 0))

    def property(self, window, name):
        """The property's bytes; those of numbers are of 8 bytes each."""
        kind, count, rest = ctypes.c_ulong(), ctypes.c_ulong(), ctypes.c_ulong()
        format_, data = ctypes.c_int(), ctypes.c_void_p()
        self.x.XGetWindowProperty(
            self.display, ctypes.c_ulong(window), self.atom(name), ctypes.c_long(0),
            ctypes.c_long(1024), 0, ctypes.c_ulong(0), ctypes.byref(kind), ctypes.byref(format_),
            ctypes.byref(count), ctypes.byref(rest), ctypes.byref(data))
        if not data:
            return b""
        found = ctypes.string_at(data, count.value * (8 if format_.value == 32 else 1))
        self.x.XFree(data)
        return found

    def numbers(self, name):
        found = self.property(self.root, name)
        return [int.from_bytes(found[at:at + 8], "little") for at in range(0, len(found), 8)]

    def windows(self):
        """The windows of programs and their titles, those in front last."""
        return {window: self.title(window) for window in self.numbers("_NET_CLIENT_LIST_STACKING")}

    def title(self, window):
        return self.property(window, "_NET_WM_NAME").decode(errors="replace")

    def active(self):
        return next(iter(self.numbers("_NET_ACTIVE_WINDOW")), 0)

    def frame(self, window):
        """Left, top, width and height of the window's inside; None if it is gone."""
        other = ctypes.byref(ctypes.c_ulong())
        left, top, width, height, border, depth = [ctypes.c_int() for _ in range(6)]
        found = self.x.XGetGeometry(self.display, ctypes.c_ulong(window), other,
                                    *map(ctypes.byref, (left, top, width, height, border, depth)))
        if not window or not found:
            return None
        self.x.XTranslateCoordinates(self.display, ctypes.c_ulong(window), ctypes.c_ulong(self.root), 0, 0,
                                     ctypes.byref(left), ctypes.byref(top), other)
        return left.value, top.value, width.value, height.value

    def move(self, x, y):
        self.test.XTestFakeMotionEvent(self.display, -1, int(x), int(y), ctypes.c_ulong(0))

    def button(self, number, down):
        self.test.XTestFakeButtonEvent(self.display, number, down, ctypes.c_ulong(0))
        self.x.XSync(self.display, 0)

    def click(self, x, y, number=1):
        self.move(x, y)
        self.button(number, 1)
        self.button(number, 0)

    def key(self, text):
        """A key with its modifiers, as "ctrl+a"."""
        names = [MODIFIERS.get(name, name) for name in text.split("+")]
        codes = [self.x.XKeysymToKeycode(self.display, ctypes.c_ulong(self.x.XStringToKeysym(n.encode())))
                 & 0xff for n in names]
        for down, order in ((1, codes), (0, codes[::-1])):
            for code in order:
                self.test.XTestFakeKeyEvent(self.display, code, down, ctypes.c_ulong(0))
        self.x.XSync(self.display, 0)

    def ask_for_life(self):
        """Asks each window whether its program still handles events, as a window manager does."""
        for window in self.windows():
            question = ClientMessage(CLIENT_MESSAGE, window=window, format=32,
                                     kind=self.atom("WM_PROTOCOLS").value)
            question.data[0], question.data[2] = self.atom("_NET_WM_PING").value, window
            self.x.XSendEvent(self.display, ctypes.c_ulong(window), 0, ctypes.c_long(0),
                              ctypes.byref(question))
        self.x.XFlush(self.display)

    def lives(self):
        """Whether any has answered since the last call."""
        event, found, ping = ClientMessage(), False, self.atom("_NET_WM_PING").value
        while self.x.XPending(self.display):
            self.x.XNextEvent(self.display, ctypes.byref(event))
            found |= event.type == CLIENT_MESSAGE and event.data[0] == ping
        return found
