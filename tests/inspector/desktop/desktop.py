# SPDX-License-Identifier: MIT
"""The window as somebody with a keyboard and a screen reader has it: keys from xdotool, answers from AT-SPI.

Every wait lasts until what it waits for has come, and fails after a minute.
"""
import subprocess
import sys
import time

import pyatspi

name = "editor-settings-inspector"


def comes(holds, what):
    """What `holds` returns as soon as that is true."""
    end = time.monotonic() + 60
    while True:
        try:
            if found := holds():
                return found
        except (LookupError, NotImplementedError, RuntimeError, AttributeError):
            pass  # a part of the window came or went while it was asked
        except Exception as error:  # GLib's, of which pyatspi names none
            if "atspi_error" not in str(error):
                raise
        if time.monotonic() > end:
            sys.exit(f"does not come: {what}")
        time.sleep(0.02)


class Window:
    """The program, running, with the keys going to it."""

    def __init__(self, program, *arguments):
        self.process = subprocess.Popen([program, *arguments])
        comes(self._application, "the program on the bus for screen readers")
        found = subprocess.run(["xdotool", "search", "--sync", "--onlyvisible", "--pid", str(self.process.pid)],
                               check=True, stdout=subprocess.PIPE, text=True)
        self.number = found.stdout.split()[0]
        subprocess.run(["xdotool", "windowactivate", "--sync", self.number], check=True)
        comes(lambda: self.settings().nRows, "the lines")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.terminate()
        self.process.wait()

    def _application(self):
        return next((one for one in pyatspi.Registry.getDesktop(0) if one and one.name == name), None)

    def part(self, role, named):
        """The visible part of that role and name."""
        return pyatspi.findDescendant(self._application(), lambda one: one.getRole() == role and one.name == named
                                      and one.getState().contains(pyatspi.STATE_SHOWING))

    def field(self):
        """The field that takes what is typed."""
        return pyatspi.findDescendant(self._application(), lambda one: one.getRole() == pyatspi.ROLE_TEXT
                                      and one.getState().contains(pyatspi.STATE_FOCUSED))

    def settings(self):
        return self.table("Settings")

    def table(self, named):
        return self.part(pyatspi.ROLE_TREE, named).queryTable()

    def lines(self, named="Settings"):
        table = self.table(named)
        return [table.getAccessibleAt(row, 0).name for row in range(table.nRows)]

    def current(self):
        """What is said of the current line."""
        table = self.settings()
        return [table.getAccessibleAt(row, 0).name for row in table.getSelectedRows()]

    def press(self, *keys):
        subprocess.run(["xdotool", "key", "--clearmodifiers", *keys], check=True)

    def write(self, text):
        """Types it into the field that has the focus, and waits until it is there."""
        subprocess.run(["xdotool", "type", "--delay", "20", text], check=True)
        comes(lambda: self.field().queryText().getText(0, -1) == text, f"'{text}' in the field")
