"""Which keys were sent, as the program's log has it, and which arrived, as the workstation's window has it."""

import json
import re
import threading
from dataclasses import dataclass

_STEP = re.compile(r'(?:key code (\d+)|keystroke "((?:[^"\\]|\\.)*)")(?: using \{([^}]*)\})?')
_SYMBOLS = {" ": "space"}


@dataclass(frozen=True)
class Key:
    # A virtual key code, or the symbol of a key that was named by what it types.
    name: int | str
    modifiers: frozenset = frozenset()

    def __str__(self):
        return "+".join([*sorted(self.modifiers), str(self.name)])


def keys_of(script):
    """What a script presses, in order."""
    for code, text, modifiers in _STEP.findall(script):
        held = frozenset(word.removesuffix(" down").strip() for word in modifiers.split(",") if word)
        for name in [int(code)] if code else [_SYMBOLS.get(letter, letter) for letter in text]:
            yield Key(name, held)


@dataclass
class Command:
    label: str
    keys: list
    # None while its script runs; else whether it ended without an error.
    succeeded: bool | None = None


class Log:
    """The commands that the program's log tells of, in order."""

    _ENTRY = re.compile(r"^\[[^]]+\] ", re.MULTILINE)
    _SCRIPT = re.compile(r"(AppleScript|Bar navigation script): (.*)", re.DOTALL)
    _BEGIN = re.compile(r"Executing (?:custom )?command: (.*)", re.DOTALL)
    _SUCCESS = re.compile(r"(?:Command|Custom command|Bar navigation) succeeded: (.*)", re.DOTALL)
    _FAILURE = re.compile(r"(?:AppleScript|Custom command AppleScript|Bar navigation) error: (.*)", re.DOTALL)

    def __init__(self, path):
        self._path = path
        self._offset = 0
        self._label = None
        self.commands = []
        self.failures = []
        self.errors = []

    def read(self):
        """What has been written since. The program writes an entry at once, so none is read in halves."""
        if self._path.exists():
            with self._path.open("rb") as file:
                file.seek(self._offset)
                new = file.read()
            self._offset += len(new)
            for entry in self._ENTRY.split(new.decode())[1:]:
                self._take(entry.removesuffix("\n"))
        return self
    def is_quiet(self):
        """Whether no command is being carried out."""
        return all(command.succeeded is not None for command in self.commands)

    def _take(self, entry):
        if match := self._BEGIN.fullmatch(entry):
            self._label = match[1]
        elif match := self._SCRIPT.fullmatch(entry):
            self.commands.append(Command(self._label or "a bar", list(keys_of(match[2]))))
            self._label = None
        elif match := self._SUCCESS.fullmatch(entry):
            self._end(True).label = match[1]
        elif match := self._FAILURE.fullmatch(entry):
            self._end(False)
            self.failures.append(match[1])
        elif entry.startswith("Recognition error:") or entry.startswith("Audio engine"):
            self.errors.append(entry)

    def _end(self, succeeded):
        # Scripts run one at a time, in the order in which they were begun.
        command = next(command for command in self.commands if command.succeeded is None)
        command.succeeded = succeeded
        return command


class Window:
    """The window that stands for the workstation: a process that tells of the keys it gets, a line of JSON each."""

    _MODIFIER_CODES = range(54, 63)

    def __init__(self, process):
        self.process = process
        self._events = []
        self._news = threading.Condition()
        threading.Thread(target=self._read, daemon=True).start()

    def wait_until_ready(self, seconds):
        return self._wait_for(lambda: any(event["event"] == "ready" for event in self._events), seconds)

    def wait_for_keys(self, count, seconds):
        """Whether so many have arrived in the time."""
        return self._wait_for(lambda: len(self.keys()) >= count, seconds)

    def keys(self):
        """All that have arrived, as it told of them; without the modifiers' own."""
        return [event for event in list(self._events)
                if event["event"] == "key" and event["keyCode"] not in self._MODIFIER_CODES]

    def _wait_for(self, condition, seconds):
        with self._news:
            return self._news.wait_for(condition, seconds)

    def _read(self):
        for line in self.process.stdout:
            with self._news:
                self._events.append(json.loads(line))
                self._news.notify_all()


def is_the_key(arrived, key):
    if frozenset(arrived["modifiers"]) != key.modifiers:
        return False
    if isinstance(key.name, int):
        return arrived["keyCode"] == key.name
    return arrived["keysym"].lower() == _keysym(key.name)


def _keysym(name):
    return {"/": "slash", ";": "semicolon"}.get(name, name.lower())
