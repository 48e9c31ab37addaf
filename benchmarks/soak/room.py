"""What is heard in the room where the program listens: commands, talk, music and silence, dealt at random by a seed."""

import subprocess
from dataclasses import dataclass

import numpy as np

import material
import sounds
from voices import VOICES, Speech

# At which the virtual microphone runs.
RATE = 48000
_MUSIC_SECONDS = 60
_SOUND_SECONDS = 10
# A command is carried out well within it, and the recogniser listens anew.
_PAUSE_SECONDS = 3.0
# Below the voice, of music that plays on while somebody commands.
_QUIETER_DECIBELS = 20
_BARS = range(1, 200)


@dataclass
class Piece:
    kind: str
    # What is commanded; none of what is not meant for the program.
    phrase: str | None
    samples: np.ndarray


class Room:
    """phrases: the triggers in force, of which each is said as often as the others."""

    def __init__(self, folder, phrases, seed):
        self._random = np.random.default_rng(seed)
        self._phrases = phrases
        self._deck = []
        self._speech = Speech(folder / "voices")
        self._music = sounds.Music(folder / "music")
        self._voices = [voice for voice in VOICES["develop"] + VOICES["report"] if voice.engine == "flite"]
        self._talk = material.studio_talk(200, self._random) + material.sentences_with_logic(50, self._random)

    def round(self):
        """About a minute of it, piece by piece."""
        yield self._command("command")
        yield self._command("command")
        yield self._said("talk", self._some_talk())
        yield self._command("command")
        yield Piece("music", None, self._some_music(_SOUND_SECONDS * RATE))
        yield self._command("command over music", with_music=True)
        yield Piece("silence", None, np.zeros(_SOUND_SECONDS * RATE))
        yield self._command("command")

    def _command(self, kind, with_music=False):
        if not self._deck:
            self._deck = list(self._random.permutation(self._phrases))
        phrase = str(self._deck.pop())
        said = phrase
        if phrase.endswith(" N"):
            bar = int(self._random.choice(_BARS))
            said = phrase[:-1] + str(self._random.choice(material.ways_to_say(bar)))
            phrase = phrase[:-1] + str(bar)
        piece = self._said(kind, f"hey logic {said}")
        piece.phrase = phrase
        if with_music:
            quietly = sounds.SPEECH_DECIBELS - _QUIETER_DECIBELS
            piece.samples += sounds.at_decibels(self._some_music(len(piece.samples)), quietly)
        return piece

    def _said(self, kind, text):
        voice = self._voices[self._random.integers(len(self._voices))]
        spoken = sounds.at_decibels(self._speech.say(voice, text), sounds.SPEECH_DECIBELS)
        spoken = sounds.resampled(spoken, sounds.RATE, RATE)
        pause = np.zeros(int(_PAUSE_SECONDS * RATE))
        samples = np.concatenate([pause[: RATE // 2], spoken, pause])
        air = sounds.at_decibels(sounds.noise("pink", len(samples), self._random), sounds.ROOM_DECIBELS)
        return Piece(kind, None, samples + air)

    def _some_talk(self):
        return ", ".join(str(sentence) for sentence in self._random.choice(self._talk, 3))

    def _some_music(self, count):
        kind = str(self._random.choice(sounds.MUSIC))
        whole = self._music.play(kind, _MUSIC_SECONDS, int(self._random.integers(4)), RATE)
        begin = int(self._random.integers(len(whole) - count))
        return sounds.at_decibels(whole[begin : begin + count], sounds.SPEECH_DECIBELS)


def play(piece, folder):
    """Until it has been played."""
    path = folder / "piece.wav"
    sounds.write(path, piece.samples, RATE)
    subprocess.run(["paplay", "-d", "feed", str(path)], check=True)
