"""Which utterances there are: each says who speaks what, how it sounds, and what must come of it."""

import json
from dataclasses import asdict, dataclass

import numpy as np

import material
import recordings
import sounds
from voices import FORMANT, NATURAL, PERSON, VOICES


@dataclass
class Utterance:
    group: str
    # Its place in the half; none when nobody speaks.
    voice: int | None
    # What is said: texts, and between them pauses in seconds.
    parts: list
    # What the matcher must get to see, one text for each command; none when nothing may happen.
    expected: list
    # Whether more words could make another phrase of it; none when that is of no interest.
    extendable: bool | None = None
    settings: str = "default"
    rate: int = 48000
    decibels: float = sounds.SPEECH_DECIBELS
    # "room" is a quiet one, "silence" none at all; else a noise or music, quieter than the speech by snr decibels.
    background: str = "room"
    snr: int | None = None
    echo: bool = False
    seed: int = 0
    # In seconds, of what is cut or filled to a length.
    length: int = 0

    @property
    def key(self):
        return json.dumps(asdict(self), sort_keys=True)


LEVELS = (20, 15, 10, 5)
PAUSES_AFTER_WAKE = (0.3, 1, 3, 8)
PAUSES_INSIDE = (100, 200, 300)
GAPS = (1.0, 1.5)


class Corpus:
    """The utterances of one half. size scales how many there are of each kind: 1 is the whole."""

    def __init__(self, half, seed, size, triggers, hours):
        self._half = half
        self._random = np.random.default_rng([seed, half == "report"])
        self._size = size
        self._triggers = triggers
        self._phrases = triggers + material.SWITCHES
        voices = VOICES[half]
        self._natural, self._formant, self._people = (
            [index for index, voice in enumerate(voices) if voice.kind == kind] for kind in (NATURAL, FORMANT, PERSON))
        self.utterances = []
        self._clean()
        self._disturbed()
        self._numbers()
        self._pauses()
        self._settings()
        self._negative()
        self._said_by_people()
        # Last, so that nothing else depends on how many there are.
        self._long(hours)

    def _add(self, group, voice, parts, expected, **more):
        self.utterances.append(Utterance(
            group, voice, parts, expected, rate=(48000, 44100)[len(self.utterances) % 2],
            seed=int(self._random.integers(1 << 30)), **more))

    def _say(self, group, voice, phrase, said=None, **more):
        """In one breath, with and without a breath after the wake phrase."""
        comma = "," if self._random.random() < 0.5 else ""
        self._add(group, voice, [f"hey logic{comma} {said or phrase}"], [f"hey logic {phrase}"], **more)

    def _pairs(self, voices, phrases, count):
        """As many pairs as wanted, each voice and each phrase as often as the others."""
        count = max(1, round(count * self._size))
        pairs = [(voice, phrase) for voice in voices for phrase in phrases]
        order = self._random.permutation(len(pairs))
        return [pairs[order[index % len(pairs)]] for index in range(count)]

    def _extendable(self, phrase):
        return any(other != phrase and other.startswith(phrase) for other in self._phrases)

    def _clean(self):
        for name, voices in (("natural", self._natural), ("formant", self._formant)):
            every = len(voices) * len(self._phrases)
            for voice, phrase in self._pairs(voices, self._phrases, every):
                self._say(f"{name} voices, clean", voice, phrase, extendable=self._extendable(phrase))

    def _disturbed(self):
        conditions = {"quiet": {"decibels": sounds.SPEECH_DECIBELS - 18}, "room": {"echo": True},
                      "digital silence": {"background": "silence"}}
        for name, condition in conditions.items():
            for voice, phrase in self._pairs(self._natural, self._phrases, 150):
                self._say(f"natural voices, {name}", voice, phrase, **condition)
        for voice, phrase in self._pairs(self._formant, self._phrases, 60):
            self._say("formant voices, digital silence", voice, phrase, background="silence")
        for background in sounds.NOISES + sounds.MUSIC:
            for level in LEVELS:
                for voice, phrase in self._pairs(self._natural, self._phrases, 45):
                    self._say(f"{background}, {level} dB", voice, phrase, background=background, snr=level)

    def _bar(self, group, voice, number, **more):
        said = str(self._random.choice(material.ways_to_say(number)))
        form = str(self._random.choice(["go to bar", "play from bar", "play at bar"]))
        self._say(group, voice, f"{form} {number}", f"{form} {said}",
                  extendable=material.can_go_on(said), **more)

    def _numbers(self):
        for voice, number in self._pairs(self._natural, range(100), 150):
            self._bar("bars 0 to 99", voice, number)
        for voice, number in self._pairs(self._natural, range(100, 1000), 200):
            self._bar("bars 100 to 999", voice, number)
        for voice, number in self._pairs(self._natural, material.TEENS_AND_TENS, 126):
            self._bar("bars, thirteen or thirty", voice, number)

    def _pauses(self):
        for pause in PAUSES_AFTER_WAKE:
            for voice, phrase in self._pairs(self._natural, self._phrases, 45):
                self._add(f"wake phrase, {pause} s, command", voice, ["hey logic", pause, phrase],
                          [f"hey logic {phrase}"])
        for pause in PAUSES_INSIDE:
            for voice, (first, rest, written) in self._pairs(self._natural, material.AMBIGUOUS, 99):
                self._add(f"{pause} ms inside a phrase", voice, [f"hey logic, {first}", pause / 1000, rest],
                          [f"hey logic {written}"])
        for voice, number in self._pairs(self._natural, range(1, 200), 45):
            said = str(self._random.choice(material.ways_to_say(number)))
            self._add("go to bar, 1 s, number", voice, ["hey logic, go to bar", 1.0, said],
                      [f"hey logic go to bar {number}"])
        for gap in GAPS:
            for voice, phrase in self._pairs(self._natural, self._triggers, 45):
                # Not the same command twice: that is an echo, and passed over.
                other = str(self._random.choice([other for other in ("undo", "rewind", "click on") if other != phrase]))
                self._add(f"two commands, {gap} s apart", voice, [f"hey logic, {phrase}", gap, f"hey logic, {other}"],
                          [f"hey logic {phrase}", f"hey logic {other}"])

    def _settings(self):
        for voice, phrase in self._pairs(self._natural, material.CUSTOM_PHRASES, 96):
            self._say("custom phrases", voice, phrase, settings="custom")
        for wake in material.OTHER_WAKE_PHRASES:
            for voice, phrase in self._pairs(self._natural, self._triggers, 18):
                self._add("other wake phrases", voice, [f"{wake}, {phrase}"], [f"{wake} {phrase}"],
                          settings=f"wake phrase: {wake}")
        for voice, phrase in self._pairs(self._natural, self._phrases, 90):
            self._add("without a wake phrase", voice, [phrase], [phrase], settings="no wake phrase")

    def _negative(self):
        for voice, sentence in self._pairs(self._natural, material.studio_talk(60, self._random), 120):
            self._add("sentences, no wake phrase needed", voice, [sentence], [], settings="no wake phrase")
        for voice, sentence in self._pairs(self._natural, material.sentences_with_logic(90, self._random), 150):
            self._add("sentences with “logic”", voice, [sentence], [])
        wakes, commands = material.near_misses(self._phrases, self._half)
        for voice, sentence in self._pairs(self._natural, wakes, 100):
            self._add("near misses of the wake phrase", voice, [sentence], [])
        for voice, sentence in self._pairs(self._natural, commands, 100):
            self._add("near misses of a command", voice, [sentence], [])
        for voice, phrase in self._pairs(self._natural, self._phrases, 120):
            self._add("bare commands", voice, [phrase], [])

    def _long(self, hours):
        """In pieces of five minutes, half of the time talk, most of the rest music."""
        pieces = max(1, round(hours * 12))
        talk = np.array(material.prose() + material.studio_talk(1000, self._random))

        # Sixty sentences are longer than five minutes, and so are 150 recordings, of which many are single words.
        def add_talk(group, voice, sentences):
            parts = [part for sentence in sentences for part in (str(sentence), 0.6)]
            self._add(group, voice, parts, [], length=300)

        for index in range(pieces):
            if index % 4 == 0:
                add_talk("ordinary speech", self._natural[index // 4 % len(self._natural)], self._random.choice(talk, 60))
            elif index % 4 == 2:
                voice = self._people[index // 4 % len(self._people)]
                files = recordings.files(VOICES[self._half][voice].base)
                add_talk("people talking", voice, self._random.choice(files, 150, replace=False))
            elif index % 12 == 11:
                self._add("noise", None, [], [], background=sounds.NOISES[index // 12 % 2], length=300)
            else:
                self._add("music", None, [], [], background=sounds.MUSIC[index // 2 % 4], length=300)

    def _said_by_people(self):
        """Nobody was asked to say our phrases, so what was said is made the user's own, but for a few that are ours."""
        speakers = [index for index in self._people if VOICES[self._half][index].base == recordings.SPEAKERS["en"]]
        if not speakers:
            return
        noisy = [{"background": what, "snr": 20} for what in sounds.NOISES + sounds.MUSIC]
        conditions = [("clean", 200, [{}]), ("quiet", 66, [{"decibels": sounds.SPEECH_DECIBELS - 18}]),
                      ("room", 66, [{"echo": True}]), ("over noise and music", 100, noisy)]
        wakes = [*recordings.WAKE_PHRASES, None]
        phrases = [*recordings.PHRASES, *recordings.BUILT_IN_PHRASES]
        for name, count, several in conditions:
            for index, (voice, phrase) in enumerate(self._pairs(speakers, phrases, count)):
                wake = wakes[index % len(wakes)]
                said = [wake, 0.35, phrase] if wake else [phrase]
                self._add(f"a person, {name}", voice, said, [f"{wake} {phrase}" if wake else phrase],
                          settings=f"recorded, wake phrase: {wake}" if wake else "recorded, no wake phrase",
                          **several[index // len(wakes) % len(several)])
