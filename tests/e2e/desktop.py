"""A display without a screen, and the programs on it: what the end-to-end scripts share."""

import os
import subprocess
import tempfile
import time
from pathlib import Path

PATIENCE_SECONDS = 20


def wait_for(what, look):
    """The first result of look() that is true; a failed assertion when none comes in time."""
    end = time.monotonic() + PATIENCE_SECONDS
    while time.monotonic() < end:
        if result := look():
            return result
        time.sleep(0.05)
    raise AssertionError(f"did not happen: {what}")


class Desktop:
    """A display, a window manager and a messenger, and a bus for assistive programs if wanted; all end with it.
    The pixels of the screen are in the home folder if they are wanted."""

    def __init__(self, programs, accessible=False, screen_folder=False, messenger_options=()):
        self.messenger_options = messenger_options
        self.programs = Path(programs)
        self.accessible = accessible
        self.screen_folder = screen_folder
        self.home = tempfile.TemporaryDirectory()
        self.running = []
        more = {"PYLOX_HOME": self.home.name, "QT_QPA_PLATFORM": "xcb", "LC_ALL": "C.UTF-8"}
        self.environment = {**os.environ, **more, "DBUS_SESSION_BUS_ADDRESS": "disabled:"}

    def __enter__(self):
        try:
            self.set_up()
        except BaseException:
            self.__exit__()
            raise
        return self

    def set_up(self):
        pixels = ["-fbdir", self.home.name] if self.screen_folder else []
        number = self.start_telling("Xvfb", "-screen", "0", "1600x900x24", *pixels, "-displayfd")
        self.environment["DISPLAY"] = ":" + number
        self.start(["openbox"])
        if self.accessible:
            self.set_up_buses()
        self.log = Path(self.home.name) / "messenger.log"
        messenger = [self.programs / "pylox-messenger", "--verbose", *self.messenger_options]
        self.messenger = self.start(messenger, self.log, stdin=subprocess.PIPE)
        wait_for("the messenger listens", lambda: "listening on" in self.said())

    def set_up_buses(self):
        """A session bus of its own. The one for assistive programs is started by the first call to its service."""
        self.environment |= {"XDG_RUNTIME_DIR": self.home.name, "GSETTINGS_BACKEND": "memory"}
        self.environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        self.environment.pop("AT_SPI_BUS_ADDRESS", None)
        address = self.start_telling("dbus-daemon", "--session", "--nofork", "--print-address")
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = address
        call = ["--session", "--print-reply", "--dest=org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus.GetAddress"]
        assert self.tool("dbus-send", *call), "no accessibility bus: the package at-spi2-core brings it"

    def __exit__(self, *_):
        for process in reversed(self.running):
            process.terminate()
            process.wait()
        self.home.cleanup()

    def start(self, command, log=None, **more):
        output = open(log, "wb") if log else subprocess.DEVNULL
        inputs = {"env": self.environment, "stdin": subprocess.DEVNULL, **more}
        process = subprocess.Popen(command, stdout=output, stderr=subprocess.STDOUT, **inputs)
        self.running.append(process)
        return process

    def start_telling(self, *command):
        """Starts what writes the line by which it is found to the file that the last word numbers."""
        read, write = os.pipe()
        with os.fdopen(read) as line:
            try:
                self.start([*command, str(write)], pass_fds=[write])
            finally:
                os.close(write)
            return line.readline().strip()

    def command(self, line):
        """A line at the messenger's console."""
        self.messenger.stdin.write(line.encode() + b"\n")
        self.messenger.stdin.flush()

    def said(self):
        return self.log.read_text(encoding="utf-8", errors="replace")

    def tool(self, *words):
        return subprocess.run(words, env=self.environment, capture_output=True, text=True, check=False).stdout.strip()

    def window_of(self, process, title="."):
        search = ["search", "--all", "--onlyvisible", "--pid", str(process.pid), "--name", title]
        return (self.tool("xdotool", *search).split() or [None])[-1]

    def client(self, *arguments):
        process = self.start([self.programs / "PyloxChat", *arguments])
        return process, wait_for("a window is shown", lambda: self.window_of(process))

    def activate(self, window, *keys):
        """Turns to a window as somebody who uses the window manager's keys, and presses keys there."""
        self.tool("xdotool", "windowactivate", "--sync", window, *(["key", *keys] if keys else []))

    def type_into(self, window, text):
        """Types like a person who has clicked the window's title: the message box has the focus by itself."""
        self.activate(window)
        self.tool("xdotool", "type", "--delay", "5", text)
        self.tool("xdotool", "key", "Return")


def ends(process, code=0):
    wait_for("the program ends", lambda: process.poll() is not None)
    assert process.returncode == code, process.returncode
