"""The keyboard of a journey's screen."""

import ctypes
import time

NAMES = {"alt": "Alt_L", "ctrl": "Control_L"}
PAUSE = 0.005  # what comes at the moment that it was let go counts as one key held down


class Keyboard:
    """Presses a key and lets it go in one request: a program under Wine whose window closes between the two never hears
    of the second, and takes that key for held down from then on."""

    def __init__(self, display):
        self._x = ctypes.CDLL("libX11.so.6")
        self._test = ctypes.CDLL("libXtst.so.6")
        self._x.XOpenDisplay.restype = ctypes.c_void_p
        self._x.XStringToKeysym.restype = ctypes.c_ulong
        self._display = ctypes.c_void_p(self._x.XOpenDisplay(display.encode()))
        if not self._display:
            raise OSError(f"no screen {display}")

    def _code(self, name):
        sign = self._x.XStringToKeysym(NAMES.get(name, name).encode())
        code = self._x.XKeysymToKeycode(self._display, ctypes.c_ulong(sign))
        if not code:
            raise ValueError(f"no key {name}")
        return code

    def presses(self, *names):
        """One after the other, each a key's name, maybe with "alt+" or "ctrl+" in front."""
        for name in names:
            codes = [self._code(part) for part in name.split("+")]
            for code in codes:
                self._test.XTestFakeKeyEvent(self._display, code, 1, ctypes.c_ulong(0))
            for code in reversed(codes):
                self._test.XTestFakeKeyEvent(self._display, code, 0, ctypes.c_ulong(0))
            self._x.XFlush(self._display)
            time.sleep(PAUSE)
