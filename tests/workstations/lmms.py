"""LMMS with a song of our own, each bar of which has a pitch: what it plays is heard, the rest is in its saved song."""

import os
import subprocess
import xml.etree.ElementTree as xml

import desktop
from failure import Failure
from hearing import SILENCE, Hearing, key_of_bar
from installed import version_of

_SINK = "feed2"  # not the one that the microphone hears
_START_PATIENCE_SECONDS = 120
_PATIENCE_SECONDS = 10
_TICKS_A_BAR = 192
_TICKS_A_NOTE = 6
_BARS = 4
# Where a click puts a clip into the track: the first bar's middle, and a bar's width, as the window is laid out by the song.
_FIRST_BAR = (348, 210)
_BAR_WIDTH = 16
_SONG_EDITOR = (323, 123)  # its title
_MOST_TRIES = 5

# A bar takes 24 seconds, so that no bar ends by itself while it is waited for another.
_SONG = """<?xml version="1.0"?>
<!DOCTYPE lmms-project>
<lmms-project creator="LMMS" creatorversion="1.2.2" type="song" version="1.0">
  <head masterpitch="0" mastervol="100" bpm="10" timesig_denominator="4" timesig_numerator="4"/>
  <song>
    <trackcontainer x="5" y="5" width="600" height="300" visible="1" minimized="0" maximized="0" type="song">
      <track muted="0" solo="0" name="Voice" type="0">
        <instrumenttrack vol="30">
          <instrument name="tripleoscillator"><tripleoscillator vol0="33" vol1="0" vol2="0"/></instrument>
        </instrumenttrack>
        <pattern type="1" pos="0" name="Bars" muted="0" steps="16">{notes}</pattern>
      </track>
    </trackcontainer>
  </song>
</lmms-project>
"""

# What its dialogs for a first start would have noted.
_CONFIGURATION = """<?xml version="1.0"?>
<!DOCTYPE lmms-config-file>
<lmms version="1.2.2">
  <app configured="1" nomsgaftersetup="1" language="en"/>
  <mixer audiodev="SDL (Simple DirectMedia Layer)" mididev="Dummy (no MIDI support)" framesperaudiobuffer="4096"/>
  <paths workingdir="{working}/"/>
  <ui enableautosave="0"/>
</lmms>
"""


class Lmms:
    """Runs from entering to leaving; every file of it lies in the folder."""

    name = "LMMS"

    def __init__(self, folder):
        self._folder = folder
        self._home = folder / "home"
        self.song_file = folder / "song.mmp"
        self._hearing = Hearing(_SINK)
        self._free_bar = _BARS + 1
        self.process = None

    def __enter__(self):
        working = self._home / "lmms"
        working.mkdir(parents=True)
        (self._home / ".lmmsrc.xml").write_text(_CONFIGURATION.format(working=working))
        # Short ones: when playback jumps, a note goes on to its end, and one that began before is not heard.
        notes = "".join(f'<note pos="{tick}" len="{_TICKS_A_NOTE}" key="{key_of_bar(tick // _TICKS_A_BAR + 1)}" vol="100" pan="0"/>'
                        for tick in range(0, _BARS * _TICKS_A_BAR, _TICKS_A_NOTE))
        self.song_file.write_text(_SONG.format(notes=notes))
        environment = dict(os.environ, HOME=str(self._home), PULSE_SINK=_SINK)
        log = (self._folder / "lmms.log").open("w")
        self.process = subprocess.Popen(["lmms", "--allowroot", self.song_file], env=environment, stdout=log, stderr=log)
        try:
            if not desktop.wait_for_window("song - LMMS .*", _START_PATIENCE_SECONDS):
                raise Failure("LMMS did not come up")
            self._choose_song_editor()
        except BaseException:
            self._end()
            raise
        return self

    def __exit__(self, *_):
        self._end()

    def version(self):
        return version_of("lmms")

    def wait_until(self, holds, patience_seconds=_PATIENCE_SECONDS):
        """Whether it comes to hold. It is looked at while LMMS is listened to."""
        return self._hearing.wait_until(holds, patience_seconds) and self.process.poll() is None

    def need(self, holds, otherwise):
        if not self.wait_until(holds):
            raise Failure(otherwise)

    def plays(self, bar):
        return self._hearing.heard() == bar

    def is_silent(self):
        return self._hearing.heard() == SILENCE

    def stop(self):
        """At the start of the song."""
        self.need(lambda: self._hearing.heard() is not None, "it is not clear whether LMMS plays")
        if not self.is_silent():
            desktop.press("space")
        desktop.press("Home")
        self.need(self.is_silent, "LMMS does not stop")

    def roll(self):
        """From the start of the song."""
        self.stop()
        desktop.press("space")
        self.need(lambda: self.plays(1), "LMMS does not play")

    def roll_in_bar_two(self):
        self.roll()
        desktop.press("Right")
        self.need(lambda: self.plays(2), "LMMS does not go on to bar 2")

    def add_clip(self):
        """By hand, into a bar that has never had one. It is not saved."""
        x, y = _FIRST_BAR
        desktop.click(x + _BAR_WIDTH * (self._free_bar - 1), y)
        self._free_bar += 1

    def saved_clips(self):
        """How many the saved song has; None while it is being written, or put in the place of the one before."""
        try:
            return len(xml.parse(self.song_file).getroot().findall("song/trackcontainer/track/pattern"))
        except (xml.ParseError, FileNotFoundError):
            return None

    def save_and_count_clips(self):
        """How many the song has, as LMMS saves it now."""
        before = self._saved_at()
        desktop.press("ctrl+s")
        self.need(lambda: self._saved_at() not in (None, before) and self.saved_clips() is not None, "the song was not saved")
        return self.saved_clips()

    def _saved_at(self):
        try:
            return self.song_file.stat().st_mtime_ns
        except FileNotFoundError:
            return None

    def _choose_song_editor(self):
        """By hand. While the window is still being laid out, a click may go astray."""
        for _ in range(_MOST_TRIES):
            desktop.click(*_SONG_EDITOR)
            desktop.press("space")
            if self.wait_until(lambda: self.plays(1)):
                return
        raise Failure("the Song-Editor takes no key")

    def _end(self):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()
