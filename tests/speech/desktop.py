"""A desktop of its own for the program: an X server without a screen, a window manager and an accessibility bus."""

import os
import re
import shutil
import subprocess
import tempfile
import time


class Desktop:
    """Nothing of the person who runs this reaches the program, and nothing of the program that person."""

    def __init__(self, limit=150, display=()):
        """`limit`: seconds, after which each process is ended, whatever becomes of this one. `display`: the name of the
        X server's display, unless the server looks for one itself."""
        self.limit = limit
        self.display = display
        self.folder = tempfile.mkdtemp(prefix="numbrela-speech.")
        self.started = []
        self.at_the_end = []  # what is to be done before the processes end

    def __enter__(self):
        foreign = re.compile("QT_|XDG_|WAYLAND_DISPLAY|XAUTHORITY|XMODIFIERS|DBUS_|AT_SPI_|GTK_|DISPLAY|LC_|LANG")
        for name in [name for name in os.environ if foreign.match(name)]:
            del os.environ[name]
        os.environ.update(
            HOME=self._own_folder("home"),
            XDG_RUNTIME_DIR=self._own_folder("run"),
            LANG="C.UTF-8",
            QT_QPA_PLATFORM="xcb",
            QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
            QT_NO_XDG_DESKTOP_PORTAL="1",
            GSETTINGS_BACKEND="memory",
            GIO_USE_VFS="local",
        )
        os.environ["DISPLAY"] = ":" + self.start_and_read(
            "Xvfb", *self.display, "-screen", "0", "1366x768x24", "-nolisten", "tcp", "-noreset", "-displayfd", "{out}"
        )
        self.start_window_manager()
        self.start_bus()
        return self

    def __exit__(self, *_):
        try:
            for task in self.at_the_end:
                task()
        finally:
            for process in reversed(self.started):
                process.terminate()
                process.wait()
            shutil.rmtree(self.folder)

    def start_window_manager(self):
        """And waits for it: it gives no focus to a window that it finds there already."""
        ready = os.path.join(self.folder, "openbox-is-ready")
        manager = self.start("openbox", "--sm-disable", "--startup", f"touch {ready}")
        while not os.path.exists(ready):
            if manager.poll() is not None:
                raise RuntimeError(f"openbox has ended\n{self.logs()}")
            time.sleep(0.02)

    def start_bus(self):
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self.start_and_read(
            "dbus-daemon", "--session", "--nofork", "--nosyslog", "--print-address={out}"
        )

    def start(self, *command, **options):
        process = subprocess.Popen(
            ["timeout", "--kill-after=20", str(self.limit), *command],
            stdout=self.log(command[0]),
            stderr=subprocess.STDOUT,
            **options,
        )
        self.started.append(process)
        return process

    def run(self, *command):
        with self.log(command[0]) as log:
            subprocess.run(command, stdout=log, stderr=subprocess.STDOUT, check=True, timeout=self.limit)

    def start_program(self, program):
        """A program for Windows runs under wine."""
        return self.start(*(["wine"] if program.endswith(".exe") else []), program)

    def start_and_read(self, *command):
        """The first line that the command writes to the file descriptor that it is given as {out}."""
        reading, writing = os.pipe()
        self.start(*[word.format(out=writing) for word in command], pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading, encoding="utf-8") as lines:
            line = lines.readline().strip()
        if not line:
            raise RuntimeError(f"{command[0]} has ended\n{self.logs()}")
        return line

    def log(self, command, mode="a"):
        return open(os.path.join(self.folder, os.path.basename(command) + ".log"), mode, encoding="utf-8")

    def log_of(self, command):
        with self.log(command, "r") as log:
            return log.read()

    def logs(self):
        texts = []
        for name in sorted(os.listdir(self.folder)):
            if name.endswith(".log"):
                with open(os.path.join(self.folder, name), encoding="utf-8", errors="replace") as log:
                    texts.append(f"--- {name}\n{log.read()}")
        return "\n".join(texts)

    def _own_folder(self, name):
        path = os.path.join(self.folder, name)
        os.mkdir(path, 0o700)
        return path


def press(*keys, delay, action="key"):
    """With so many milliseconds for each key, of which the action may be but one half: "keydown" or "keyup". A key such
    as Alt is held for a while before the one that goes with it: if a busy machine kept the reader's leave for the first
    one waiting until the second was pressed, Qt would take it for one that is pressed alone, and open the menu bar."""
    command = ["xdotool"]
    for key in keys:
        *held, last = key.split("+")
        if action != "keyup":
            command += [word for one in held for word in ("keydown", "--delay", str(4 * delay), one)]
        command += [action, "--delay", str(delay), last]
        if action != "keydown":
            command += [word for one in reversed(held) for word in ("keyup", "--delay", str(delay), one)]
    subprocess.run(command, check=True, timeout=10)
