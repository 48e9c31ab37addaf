"""Whether the program in the status area can be relied on for hours: script/soak. See docs/reliability.md.

It listens to the virtual microphone beside a window that stands for the workstation; what it says that it sent is compared
with what arrived there, and what it takes of the machine is measured now and then.
"""

import argparse
import json
import os
import shutil
import subprocess
import sys
import tempfile
import time
from pathlib import Path

import verdict
from keys import Log, Window
from process import Process
from room import Room, play

_MEASUREMENTS = 12
_PATIENCE_SECONDS = 30
_ROUNDS_TO_POPOVER = 3
_ROUNDS_TO_SWITCHING_OFF = 10


class Soak:
    def __init__(self, given, home):
        self._given = given
        self._environment = dict(os.environ, HOME=str(home), XDG_CONFIG_HOME=f"{home}/config",
                                 XDG_STATE_HOME=f"{home}/state")
        self._log_path = home / "Library/Logs/Brivandel/Brivandel.log"
        self._folder = home
        self._log = Log(self._log_path)
        self._said = 0
        self._as_said = 0
        self._points = []
        given.folder.mkdir(parents=True, exist_ok=True)
        self._room = Room(given.folder, self._phrases(), given.seed)

    def run(self):
        """Whether all is well; prints the figures."""
        with subprocess.Popen([self._given.window], stdin=subprocess.PIPE, stdout=subprocess.PIPE) as window_process, \
                subprocess.Popen([self._given.program], env=self._environment) as program:
            try:
                window = Window(window_process)
                self._begin(window, program)
                self._last(window, program)
                problems = verdict.complaints(self._points, self._log, window.keys())
                self._ask("--quit")
                if (status := program.wait(_PATIENCE_SECONDS)) != 0:
                    problems.append(f"the program ended with status {status}")
            except (Failure, subprocess.SubprocessError, OSError) as failure:
                problems = [str(failure)]  # what was measured until then is still of use
            finally:
                for process in (program, window_process):
                    end(process)
        self._report(problems)
        if self._log_path.exists():
            shutil.copy(self._log_path, self._given.folder / "last.log")
        return not problems

    def _begin(self, window, program):
        self._wait(lambda: window.wait_until_ready(1), "the workstation's window did not open")
        # The walkthrough of the first start.
        subprocess.run(["timeout", str(_PATIENCE_SECONDS), "xdotool", "search", "--sync", "--name",
                        "^Welcome to Brivandel$", "windowclose"], check=True)
        self._process = Process(program.pid)
        self._switch_on()

    def _last(self, window, program):
        begin = time.monotonic()
        minutes = lambda: (time.monotonic() - begin) / 60
        self._measure(window, 0)
        rounds = 0
        while minutes() < 60 * self._given.hours:
            for piece in self._room.round():
                if program.poll() is not None or window.process.poll() is not None:
                    raise Failure(f"{'the program' if program.poll() is not None else 'the window'} ended by itself")
                self._hear(piece)
            rounds += 1
            if minutes() >= 60 * self._given.hours / _MEASUREMENTS * len(self._points):
                self._wait_for_keys(window)
                self._measure(window, minutes())
            if rounds % _ROUNDS_TO_POPOVER == 1:
                self._ask("--popover")
            elif rounds % _ROUNDS_TO_POPOVER == 2:
                self._ask("--popover")
            if rounds % _ROUNDS_TO_SWITCHING_OFF == 0:
                self._ask("--toggle")
                self._switch_on()

    def _hear(self, piece):
        before = len(self._log.read().commands)
        play(piece, self._folder)
        commands = self._log.read().commands[before:]
        if piece.phrase:
            self._said += 1
            self._as_said += len(commands) == 1
        elif commands and self._given.verbose:
            print(f"in {piece.kind}: {[command.label for command in commands]}", file=sys.stderr)
        if piece.phrase and self._given.verbose:
            print(f"{piece.phrase}: {[command.label for command in commands]}", file=sys.stderr)

    def _wait_for_keys(self, window):
        self._wait(lambda: self._log.read().is_quiet(), "a command's script did not end")
        window.wait_for_keys(sum(len(command.keys) for command in self._log.commands), _PATIENCE_SECONDS)
        time.sleep(1)  # for keys that nobody sent

    def _measure(self, window, minutes):
        process = self._process
        self._points.append(verdict.Point(
            minutes, process.resident_mib(), process.private_mib(), process.descriptors(), process.threads(),
            process.cpu_seconds(), self._said, len(self._log.commands), len(window.keys())))
        print(verdict.table(self._points[-2:]).splitlines()[-1], file=sys.stderr, flush=True)

    def _switch_on(self):
        before = self._text().count("startListening()")
        self._ask("--toggle")
        self._wait(lambda: self._text().count("startListening()") > before, "listening did not begin")

    def _text(self):
        return self._log_path.read_text() if self._log_path.exists() else ""

    def _ask(self, request):
        subprocess.run([self._given.program, request], env=self._environment, check=True, timeout=_PATIENCE_SECONDS)

    def _phrases(self):
        listed = subprocess.run([self._given.program, "commands", "--json"], env=self._environment, check=True,
                                capture_output=True, text=True).stdout
        return [trigger for line in listed.splitlines() for trigger in json.loads(line)["triggers"]]

    def _wait(self, condition, otherwise):
        deadline = time.monotonic() + _PATIENCE_SECONDS
        while not condition():
            if time.monotonic() > deadline:
                raise Failure(otherwise)
            time.sleep(0.05)

    def _report(self, problems):
        if self._points:
            print(verdict.table(self._points))
            last = self._points[-1]
            keys = sum(len(command.keys) for command in self._log.commands)
            print(f"\n{self._said} commands were said, {self._as_said} of them led to one command; "
                  f"{len(self._log.commands)} commands sent {keys} keys in all; {last.arrived} had arrived when last measured.")
        for problem in problems:
            print(f"script/soak: {problem}", file=sys.stderr)
        if problems:
            print(f"script/soak: the program's log lies in {self._given.folder}/last.log", file=sys.stderr)


def end(process):
    process.terminate()
    try:
        process.wait(_PATIENCE_SECONDS)
    except subprocess.TimeoutExpired:
        process.kill()


class Failure(Exception):
    """What makes it useless to go on."""


def arguments():
    parser = argparse.ArgumentParser(prog="script/soak")
    parser.add_argument("hours", type=float, metavar="HOURS", help="how long, as in 1 or 0.05")
    parser.add_argument("--seed", type=int, default=1, help="of what is said when")
    parser.add_argument("--verbose", action="store_true", help="tell of each command what came of it")
    parser.add_argument("--program", type=Path, required=True)
    parser.add_argument("--window", type=Path, required=True)
    parser.add_argument("--folder", type=Path, required=True, help="where voices and music are kept")
    given = parser.parse_args()
    if given.hours <= 0:
        parser.error("HOURS must be more than none")
    return given


def main():
    with tempfile.TemporaryDirectory(prefix="soak.") as home:
        return 0 if Soak(arguments(), Path(home)).run() else 1


if __name__ == "__main__":
    sys.exit(main())
