"""A pupil who hears what the program for Windows tells UI Automation, under wine."""

import collections
import os
import re
import shutil
import subprocess
import time

from pupil import Deaf, Pupil

# What UI Automation calls the types of controls.
BUTTON, EDIT, LIST_ITEM, LIST, MENU_ITEM = 50000, 50004, 50007, 50008, 50011

# The type that a control must have whose name matches. What matches nothing is a shop or a line of a list.
TYPES = {
    "Sumas|Restas|Multiplicaciones|Divisiones|Mayor y menor|10, 100, 1000|Coloca y suma|La compra|Salir": BUTTON,
    "Continuar|Hecho|Borrar|Ver solució[nm]|Volver a casa|Aceptar|Sí": BUTTON,
    r"Opciones|Cifras( .*)?|Número de (sumandos|productos)|\d": MENU_ITEM,
    "(Lista|Cesta) de la compra|Productos disponibles": LIST,
    r"Suma|Diferencia|Resultado|Cociente|Divisor|Dividendo y operaciones|(Producto parcial|Sumando) \d": EDIT,
    "Marcador|Veredicto|Enunciado y veredicto|Instrucción|(Dinero|Tiempo) disponible|Número de productos a .*": EDIT,
}

Focused = collections.namedtuple("Focused", ["id", "name"])


class WindowsPupil(Pupil):
    """The library in place of the system's UIAutomationCore.dll writes what it is told; it says in which form."""

    KEY_DELAY = 0  # so that a key is let go before its press has changed anything

    def __init__(self, desktop, library):
        super().__init__()
        prefix = os.path.join(desktop.folder, "wine")
        self.heard_file = os.path.join(desktop.folder, "heard")
        open(self.heard_file, "x").close()
        self.read = 0  # bytes of that file
        self.window = ""  # the title of the one in front
        os.environ.update(
            QT_QPA_PLATFORM="windows",
            WINEPREFIX=prefix,
            WINEDEBUG="-all",
            WINEDLLOVERRIDES="uiautomationcore=n;mscoree=;mshtml=;winemenubuilder.exe=",
            NUMBRELA_HEARD="Z:" + self.heard_file.replace("/", "\\"),
        )
        desktop.at_the_end.append(lambda: desktop.run("wineserver", "--kill", "--wait"))
        desktop.run("wine", "wineboot", "--init")
        # A second after the last process has gone, wine takes its desktop away, and who comes just then waits for long.
        desktop.run("wineserver", "--kill", "--wait")
        shutil.copy(library, os.path.join(prefix, "drive_c/windows/system32/uiautomationcore.dll"))
        self.desktop = desktop

    def notices(self, inserted):
        """The system is told that a text has changed, and not how."""
        self._attend_until(lambda: any(inserted in text for text in self.written))
        self.written.clear()

    def presses(self, *keys):
        self._attend_until(self._gets_keys)
        super().presses(*keys)

    def faces(self, window):
        """Wine may leave the focus of the X server on a window that has closed."""
        self.desktop.run("xdotool", "search", "--onlyvisible", "--name", f"^{window}$", "windowactivate", "--sync")

    def _gets_keys(self):
        """Wine asks the X server for the focus after the program has been told that it has it."""
        asked = subprocess.run(["xdotool", "getwindowfocus", "getwindowname"], capture_output=True, timeout=10)
        return asked.stdout.decode().rstrip("\n") == self.window

    def _looks_around(self):
        self.desktop.run("wine", "rundll32", "uiautomationcore.dll,AskWindowInFront")
        return self.focus is not None

    def _attend(self):
        """Takes what has come, or waits a moment."""
        with open(self.heard_file, "rb") as heard:
            heard.seek(self.read)
            whole, end, _ = heard.read().rpartition(b"\x1e")
        self.read += len(whole + end)
        if not end:
            time.sleep(0.02)
            return
        for record in whole.decode().split("\x1e"):
            kind, *fields = record.split("\x1f")[:-1]
            getattr(self, "_on_" + kind)(*fields)

    def _on_window(self, name, *texts):
        self.window = name
        self.focus = None
        self._say(name, *texts)

    def _on_focus(self, number, kind, name, text, description):
        possible = [EDIT] if text else [wanted for names, wanted in TYPES.items() if re.fullmatch(names, name)]
        if int(kind) not in (possible or [BUTTON, LIST_ITEM]):
            raise Deaf(f"{name!r}, with the text {text!r}, is told to be a control of the type {kind}")
        if self.focus is None or self.focus.id != number:
            self.focus = Focused(number, name)
            self._say(name, text, description)

    def _on_caret(self, number, offset):
        if self.focus is not None and self.focus.id == number:
            self.caret = int(offset)

    def _on_text(self, number, text):
        if self.focus is not None and self.focus.id == number:
            self.written.append(text)

    def _on_said(self, text):
        self._announce(text)
