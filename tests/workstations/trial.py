"""A trial of one command: what is there before, what is said, and what must come of it."""

from collections.abc import Callable
from dataclasses import dataclass

# How what came of it was seen.
REMOTE = "its remote protocol"
SESSION = "its saved session"
SOUND = "its sound"
SONG = "its saved song"
ERROR = "the command's error"


@dataclass(frozen=True)
class Trial:
    # The command as the catalogue and the table call it.
    command: str
    # What must come of it, as the table says it.
    outcome: str
    seen_by: str
    # Makes what the command begins with, and returns what has to be known of it afterwards.
    before: Callable[[], object]
    # Whether it has come to be, given that; asked again until it has, or for too long.
    after: Callable[[object], bool]
    # As it is said; none: as the command is called.
    spoken: str | None = None
    # The workstation has no key for it: the command fails with the outcome as its sentence, and does nothing.
    is_refused: bool = False

    def phrase(self):
        return self.spoken or self.command


@dataclass(frozen=True)
class Result:
    trial: Trial
    # Through the virtual microphone; else handed in as a transcript.
    by_voice: bool
    # Empty: all is well.
    problem: str

    def line(self):
        means = "spoken" if self.by_voice else "transcript"
        verdict = self.problem or f"{self.trial.outcome}, by {self.trial.seen_by}"
        return f"{'FAILED' if self.problem else 'ok':6}  {self.trial.command:18}  {means:10}  {verdict}"
