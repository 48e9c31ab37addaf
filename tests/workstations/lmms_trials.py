"""What each command has to do in LMMS."""

import desktop
from trial import ERROR, SONG, SOUND, Trial

_SAVE_DIALOG = "Save Project"


class Beginnings:
    """What a command begins with. Each returns what has to be known of it afterwards."""

    def __init__(self, lmms):
        self._lmms = lmms

    def stopped(self):
        """Whether it was played afterwards, to be filled in."""
        self._lmms.stop()
        return {}

    def rolling(self):
        self._lmms.roll()

    def rolling_in_bar_two(self):
        """Whether it was played again afterwards, to be filled in."""
        self._lmms.roll_in_bar_two()
        return {}

    def with_clip(self):
        """How many clips there are, with one that was just put in."""
        self._lmms.stop()
        clips = self._lmms.save_and_count_clips()
        self._lmms.add_clip()
        self._lmms.need(lambda: self._lmms.save_and_count_clips() == clips + 1, "no clip was put in")
        return clips + 1

    def without_clip(self):
        """How many clips there are, without one that was put in and taken back."""
        clips = self.with_clip() - 1
        desktop.press("ctrl+z")
        self._lmms.need(lambda: self._lmms.save_and_count_clips() == clips, "the clip was not taken back")
        return clips

    def to_be_saved(self):
        """How many clips the saved song has; there is one more."""
        self._lmms.stop()
        clips = self._lmms.save_and_count_clips()
        self._lmms.add_clip()
        return clips


def trials(lmms):
    begin = Beginnings(lmms)

    def plays(_):
        return lmms.plays(1)

    def stands(_):
        return lmms.is_silent()

    def plays_when_started(played, bar):
        """Where it stands is heard when it is started there by hand."""
        if not played and lmms.is_silent():
            desktop.press("space")
            played["by"] = "hand"
        return lmms.plays(bar)

    def name_song(_):
        if not desktop.has_window(_SAVE_DIALOG):
            return False
        named = lmms.song_file.with_name("named.mmp")
        desktop.press("ctrl+a")
        desktop.write(str(named))
        desktop.press("Return")
        return lmms.wait_until(named.exists)

    def refused(command, sentence, spoken=None):
        return Trial(command, sentence, ERROR, begin.stopped, stands, spoken=spoken, is_refused=True)

    yield Trial("play", "plays the song", SOUND, begin.stopped, plays)
    yield Trial("stop", "stops", SOUND, begin.rolling, stands)
    yield Trial("pause", "stops, and goes back to the start", SOUND, begin.rolling_in_bar_two,
                lambda played: plays_when_started(played, 1))
    yield Trial("play that back", "plays the song", SOUND, begin.stopped, plays)
    yield Trial("stop playback", "stops", SOUND, begin.rolling, stands)
    yield Trial("stop recording", "stops", SOUND, begin.rolling, stands)
    yield Trial("fast forward", "goes on by a bar", SOUND, begin.stopped, lambda played: plays_when_started(played, 2))
    yield Trial("go to start", "goes to the start, and plays on", SOUND, begin.rolling_in_bar_two, plays)
    yield refused("start recording", "LMMS has no key that records.")
    yield refused("count me in", "LMMS has no key that counts in.")
    yield refused("enable loop", "LMMS has no key for its loop points.")
    yield refused("disable loop", "LMMS has no key for its loop points.")
    yield refused("loop this section", "LMMS has no key for its loop points.")
    yield refused("click on", "LMMS has no key for its metronome.")
    yield refused("click off", "LMMS has no key for its metronome.")
    yield refused("go to bar 25", "LMMS has no key that goes to a bar.", spoken="go to bar twenty five")
    yield refused("play from bar 25", "LMMS has no key that goes to a bar.", spoken="play from bar twenty five")
    yield Trial("undo", "takes back the last change", SONG, begin.with_clip, lambda clips: lmms.save_and_count_clips() == clips - 1)
    yield Trial("redo", "makes it again", SONG, begin.without_clip, lambda clips: lmms.save_and_count_clips() == clips + 1)
    yield Trial("delete last take", "takes back the last change", SONG, begin.with_clip,
                lambda clips: lmms.save_and_count_clips() == clips - 1)
    yield Trial("save project", "writes the song", SONG, begin.to_be_saved, lambda clips: lmms.saved_clips() == clips + 1)
    # The last: what is saved later goes into the other file.
    yield Trial("save as", "asks for a name, and writes it", SONG, begin.stopped, name_song)
