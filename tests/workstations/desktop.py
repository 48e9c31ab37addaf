"""Other windows on the desktop, and a person's own keys."""

import json
import shutil
import subprocess
import time

_PATIENCE_SECONDS = 20


class Window:
    """A window of a program of its own that notes the keys that it gets. It has the keyboard when this is there."""

    def __init__(self, binary, title, folder):
        # Programs are known by their files' names, too, and this one's is another's.
        own = shutil.copy(binary, folder / title)
        self._process = subprocess.Popen([own, "--title", title, "--class", title, "--name", title.lower()], text=True,
                                         bufsize=1, stdin=subprocess.PIPE, stdout=subprocess.PIPE)

    def __enter__(self):
        self._read_until("ready")
        return self

    def __exit__(self, *_):
        self._process.terminate()
        self._process.wait()

    def keys(self):
        """What it has got since it was asked last."""
        self._process.stdin.write("mark\n")
        return [event for event in self._read_until("mark") if event["event"] == "key"]

    def _read_until(self, kind):
        events = []
        for line in self._process.stdout:
            events.append(json.loads(line))
            if events[-1]["event"] == kind:
                break
        return events


class ActiveWindows:
    """Tells each change of the window that has the keyboard, when it comes."""

    def __enter__(self):
        self._process = subprocess.Popen(["timeout", str(_PATIENCE_SECONDS), "xprop", "-root", "-spy", "_NET_ACTIVE_WINDOW"],
                                         text=True, stdout=subprocess.PIPE)
        self._process.stdout.readline()  # as it is now
        return self

    def __exit__(self, *_):
        self._process.terminate()
        self._process.wait()

    def next(self):
        """None when none comes."""
        return self._process.stdout.readline() or None


def press(*keys):
    """As a person does, into the window that has the keyboard."""
    subprocess.run(["xdotool", "key", *keys], check=True)


def write(text):
    subprocess.run(["xdotool", "type", text], check=True)


def click(x, y):
    subprocess.run(["xdotool", "mousemove", str(x), str(y), "click", "1"], check=True)


def wait_for_window(title, patience_seconds=_PATIENCE_SECONDS):
    """Whether one with that title is there, or comes."""
    deadline = time.monotonic() + patience_seconds
    # It ends when a window that it looks at goes away meanwhile, and is then begun again.
    while (remaining := deadline - time.monotonic()) > 0:
        found = subprocess.run(["timeout", str(remaining), "xdotool", "search", "--sync", "--onlyvisible", "--name",
                                f"^{title}$"], capture_output=True)
        if found.returncode == 0:
            return True
    return False


def has_window(title):
    return subprocess.run(["xdotool", "search", "--onlyvisible", "--name", f"^{title}$"],
                          capture_output=True).returncode == 0


def active_title():
    return subprocess.run(["xdotool", "getactivewindow", "getwindowname"], capture_output=True, text=True).stdout.strip()
