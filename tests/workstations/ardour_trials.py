"""What each command has to do in Ardour."""

import time

import desktop
from trial import REMOTE, SESSION, Trial

_MARK_KEY = "KP_Enter"
_LOOP_KEY = "l"
_SNAPSHOT_DIALOG = "Take Snapshot"
_LOOP = (3, 5)  # bars
# A bar takes two seconds, and recording without it a tenth; on a busy machine a report may be late.
_LEAST_COUNT_SECONDS = 1


class Beginnings:
    """What a command begins with. Each returns what has to be known of it afterwards."""

    def __init__(self, ardour):
        self._ardour = ardour
        self._remote = ardour.remote
        self._remote.set_loop(*_LOOP)
        self._remote.arm_track()
        self._marked_bar = 10

    def stopped(self):
        self._remote.stop()
        self._remote.go_to_bar(1)

    def rolling(self):
        self.stopped()
        self._remote.roll()

    def at_bar(self, bar):
        def go():
            self._remote.stop()
            self._remote.go_to_bar(bar)
        return go

    def recording(self):
        self.stopped()
        self._remote.record()

    def about_to_count(self):
        """When counting and recording began, to be filled in."""
        self.stopped()
        return {}

    def with_take(self):
        """How many pieces of sound there are."""
        self.recording()
        self._remote.listen(1)
        self._remote.stop()
        return self._ardour.save_and_count_regions()

    def marked(self):
        """The marks around the playhead."""
        # Where there is a mark, no other is set.
        self._marked_bar += 1
        self._remote.stop()
        self._remote.go_to_bar(self._marked_bar)
        # What is around the playhead is reported in the second after it has moved.
        self._remote.listen(1.2)
        before = self._remote.marks()
        desktop.press(_MARK_KEY)
        self._remote.need(lambda: self._remote.marks() != before, "no mark was set")
        return self._remote.marks()

    def unmarked(self):
        """The marks around the playhead."""
        marked = self.marked()
        self._remote.undo()
        self._remote.need(lambda: self._remote.marks() != marked, "the mark was not undone")
        return self._remote.marks()

    def to_be_saved(self):
        """How many marks the saved session has."""
        saved = len(self._ardour.saved_marks())
        self.marked()
        return saved

    def click(self, on):
        return lambda: self._remote.click(on)

    def looping(self):
        """Begun with its key: over the remote protocol, starting playback ends the loop."""
        self.stopped()
        desktop.press(_LOOP_KEY)
        self._remote.need(lambda: self._remote.loops() and self._remote.rolls(), "Ardour does not play its loop range")


def trials(ardour):
    remote = ardour.remote
    begin = Beginnings(ardour)

    def name_snapshot(_):
        if not desktop.has_window(_SNAPSHOT_DIALOG):
            return False
        desktop.press("ctrl+a")
        desktop.write("Named")
        desktop.press("Return")
        return remote.wait_until(lambda: ardour.session_file("Named").exists())

    def counted_in(times):
        if remote.records():
            times.setdefault("began", time.monotonic())
        if remote.position() > (1, 1, 0):
            times.setdefault("recorded", time.monotonic())
        return remote.records() and "recorded" in times and times["recorded"] - times["began"] > _LEAST_COUNT_SECONDS

    def rolls(_):
        return remote.rolls()

    def stands(_):
        return not remote.rolls()

    yield Trial("play", "rolls", REMOTE, begin.stopped, rolls)
    yield Trial("stop", "stops", REMOTE, begin.rolling, stands)
    yield Trial("pause", "stops where it is", REMOTE, begin.rolling, lambda _: stands(_) and remote.position() > (1, 1, 0))
    yield Trial("play that back", "rolls", REMOTE, begin.stopped, rolls)
    yield Trial("stop playback", "stops", REMOTE, begin.rolling, stands)
    yield Trial("fast forward", "goes on by a step of the grid", REMOTE, begin.stopped,
                lambda _: stands(_) and remote.position() > (1, 1, 0))
    yield Trial("go to start", "goes to the start", REMOTE, begin.at_bar(9), lambda _: remote.position() == (1, 1, 0))
    # From a bar with more digits, which Ardour's clock keeps where nothing is typed over them.
    yield Trial("go to bar 25", "goes there and stays", REMOTE, begin.at_bar(138),
                lambda _: stands(_) and remote.position() == (25, 1, 0), spoken="go to bar twenty five")
    yield Trial("play from bar 25", "rolls from there", REMOTE, begin.at_bar(138),
                lambda _: rolls(_) and (25, 1, 0) <= remote.position() < (35, 1, 0), spoken="play from bar twenty five")
    yield Trial("click on", "switches the click on", REMOTE, begin.click(on=False), lambda _: remote.clicks())
    yield Trial("click off", "switches the click off", REMOTE, begin.click(on=True), lambda _: not remote.clicks())
    yield Trial("enable loop", "plays the loop range", REMOTE, begin.stopped, lambda _: rolls(_) and remote.loops())
    yield Trial("disable loop", "plays on without the loop", REMOTE, begin.looping,
                lambda _: rolls(_) and not remote.loops())
    yield Trial("loop this section", "plays the loop range", REMOTE, begin.stopped,
                lambda _: rolls(_) and remote.loops())
    yield Trial("undo", "takes back the mark set last", REMOTE, begin.marked, lambda marks: remote.marks() != marks)
    yield Trial("redo", "sets it again", REMOTE, begin.unmarked, lambda marks: remote.marks() != marks)
    yield Trial("start recording", "records on the armed track", REMOTE, begin.stopped,
                lambda _: remote.records() and remote.is_track_armed(), spoken="record")
    yield Trial("stop recording", "stops and disarms", REMOTE, begin.recording, lambda _: stands(_) and not remote.is_armed())
    yield Trial("count me in", "counts a bar, then records", REMOTE, begin.about_to_count, counted_in)
    yield Trial("delete last take", "takes the recording out", SESSION, begin.with_take,
                lambda regions: ardour.save_and_count_regions() == regions - 1)
    yield Trial("save project", "writes the session", SESSION, begin.to_be_saved,
                lambda marks: len(ardour.saved_marks()) > marks)
    yield Trial("save as", "asks for a snapshot's name, and writes it", SESSION, begin.stopped, name_snapshot)
