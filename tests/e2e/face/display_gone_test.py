"""The display ends under the open windows of the program, as it does when a session crashes.

display_gone_test.py PROGRAM
"""

import os
import plistlib
import signal
import subprocess
import sys
import tempfile
import unittest

PROGRAM = os.path.abspath(sys.argv[1])
PATIENCE_S = 60


class Display:
    """A virtual display without a window manager, by a number that it picks itself."""

    def __init__(self):
        read_end, write_end = os.pipe()
        self.server = subprocess.Popen(["Xvfb", "-displayfd", str(write_end), "-nolisten", "tcp", "-noreset"],
                                       pass_fds=[write_end], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(write_end)
        with os.fdopen(read_end) as number:
            self.name = ":" + number.readline().strip()

    def kill(self):
        self.server.send_signal(signal.SIGKILL)
        self.server.wait()


class DisplayGone(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.display = Display()
        self.addCleanup(self.display.kill)
        home = self.folder.name
        self.settings = os.path.join(home, ".config/brivandel/defaults.plist")
        self.environment = {"PATH": os.environ["PATH"], "HOME": home, "XDG_RUNTIME_DIR": home, "LC_ALL": "C.UTF-8",
                            "DISPLAY": self.display.name, "QT_QPA_PLATFORM": "xcb"}
        # A sanitizer's and the sound server's, where there is one.
        self.environment |= {name: value for name, value in os.environ.items() if name.endswith(("SAN_OPTIONS", "_SERVER"))}

    def start(self):
        program = subprocess.Popen([PROGRAM], env=self.environment, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
        self.addCleanup(program.stderr.close)
        self.addCleanup(program.wait)
        self.addCleanup(program.kill)
        subprocess.run(["xdotool", "search", "--sync", "--onlyvisible", "--name", "^Welcome to Brivandel$"],
                       env=self.environment, check=True, timeout=PATIENCE_S, stdout=subprocess.DEVNULL)
        return program

    def test_program_ends_by_itself_with_whole_settings_and_starts_again(self):
        program = self.start()
        self.display.kill()
        _, said = program.communicate(timeout=PATIENCE_S)
        self.assertGreater(program.returncode, 0, "a signal ended it: " + said)
        with open(self.settings, "rb") as file:
            self.assertIsInstance(plistlib.load(file), dict)

        self.display = Display()
        self.addCleanup(self.display.kill)
        self.environment["DISPLAY"] = self.display.name
        again = self.start()
        subprocess.run([PROGRAM, "--quit"], env=self.environment, check=True, timeout=PATIENCE_S)
        self.assertEqual(again.wait(PATIENCE_S), 0)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
