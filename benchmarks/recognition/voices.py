"""Voices that Debian packages, and the speech that they give: kept in a cache, since most of it is used many times."""

import hashlib
import os
import subprocess
import tempfile
from dataclasses import dataclass, replace
from pathlib import Path

import recordings
import sounds
from digests import digest_of

# Speech that was made another way is made anew.
_MAKING = digest_of(__file__, sounds.__file__)

# Whence a voice is: put together from the sounds that a person made, made by rules, or a person who said it all.
NATURAL, FORMANT, PERSON = "natural", "formant", "person"


@dataclass(frozen=True)
class Voice:
    name: str
    engine: str
    base: str
    kind: str
    # The size of the speaker: 1.06 is shorter in throat and higher in voice by 6 %.
    tract: float = 1.0
    # The length of what is said, 1.1 is slower by 10 %.
    stretch: float = 1.0
    pitch: int = 50


def _speakers(*voices):
    """Each as packaged, as a taller and slower and as a smaller and quicker person."""
    for voice in voices:
        yield voice
        yield replace(voice, name=voice.name + " tall", tract=0.95, stretch=1.1)
        yield replace(voice, name=voice.name + " small", tract=1.06, stretch=0.92)


def _flite(name):
    return Voice(name, "flite", name, NATURAL)


def _festival(name, base):
    return Voice(name, "festival", base, NATURAL)


def _formant(name, base, pitch=50, stretch=1.0):
    return Voice(name, "espeak-ng", base, FORMANT, pitch=pitch, stretch=stretch)


def _person(language):
    return Voice(f"person {language}", "recorded", recordings.SPEAKERS[language], PERSON)


# No speaker is in both halves.
VOICES = {
    "develop": [
        *_speakers(_flite("rms"), _flite("kal16"), _festival("ked", "ked_diphone")),
        _formant("en-us m3", "en-us+m3"),
        _formant("en-us f2", "en-us+f2"),
        _formant("en-us slow", "en-us", pitch=40, stretch=1.15),
        _person("it"),
    ],
    "report": [
        *_speakers(_flite("slt"), _flite("awb"), _festival("slt hts", "cmu_us_slt_arctic_hts")),
        _formant("en-us m7", "en-us+m7"),
        _formant("en-us f4", "en-us+f4"),
        _formant("en-us quick", "en-us", pitch=60, stretch=0.95),
        _person("en"), _person("es"), _person("fr"), _person("ru"),
    ],
}


class Speech:
    """Says texts, at sounds.RATE, the loudest sample at 1. Any thread."""

    def __init__(self, cache: Path):
        self._cache = cache
        cache.mkdir(parents=True, exist_ok=True)

    def _path(self, voice, text):
        made = _MAKING
        if voice.engine == "recorded":
            made += digest_of(recordings.__file__, recordings.path_of(voice.base, text))
        digest = hashlib.sha256(repr((made, voice, text)).encode()).hexdigest()
        return self._cache / f"{digest[:24]}.wav"

    def prepare(self, wanted):
        """wanted: pairs of voice and text. Says in one run of a synthesiser what is slow to say one by one."""
        missing = {(voice, text) for voice, text in wanted if not self._path(voice, text).exists()}
        for base in sorted({voice.base for voice, _ in missing if voice.engine == "festival"}):
            self._festival(base, sorted((w for w in missing if w[0].base == base), key=repr))
        for voice, text in sorted((w for w in missing if w[0].engine != "festival"), key=repr):
            self._say(voice, text)

    def say(self, voice, text):
        path = self._path(voice, text)
        if not path.exists():
            self.prepare([(voice, text)])
        return sounds.read(path)[0]

    def _say(self, voice, text):
        if voice.engine == "recorded":
            self._keep(voice, text, *recordings.read(voice.base, text))
            return
        with tempfile.TemporaryDirectory() as folder:
            spoken = Path(folder) / "spoken.wav"
            if voice.engine == "flite":
                command = ["flite", "-voice", voice.base, "--setf", f"duration_stretch={_stretch(voice)}", "-t", text]
                command += ["-o", str(spoken)]
            else:
                speed = str(round(165 / voice.stretch))  # words a minute
                command = ["espeak-ng", "-v", voice.base, "-p", str(voice.pitch), "-s", speed, "-w", str(spoken), text]
            subprocess.run(command, check=True, stdin=subprocess.DEVNULL)
            self._keep(voice, text, *sounds.read(spoken))

    def _festival(self, base, wanted):
        with tempfile.TemporaryDirectory() as folder:
            script = [f"(voice_{base})"]
            for index, (voice, text) in enumerate(wanted):
                script.append(f"(Parameter.set 'Duration_Stretch {_stretch(voice)})")
                words = text.replace("\\", "").replace('"', "")
                script.append(f'(utt.save.wave (utt.synth (Utterance Text "{words}")) "{folder}/{index}.wav")')
            subprocess.run(["festival", "--pipe"], input="\n".join(script).encode(), check=True)
            for index, (voice, text) in enumerate(wanted):
                self._keep(voice, text, *sounds.read(Path(folder) / f"{index}.wav"))

    def _keep(self, voice, text, samples, rate):
        # Played faster, a voice is smaller.
        samples = sounds.resampled(samples, rate * voice.tract, sounds.RATE)
        samples = sounds.trimmed(samples)
        path = self._path(voice, text)
        unfinished = path.with_suffix(f".{os.getpid()}.{id(samples)}")
        sounds.write(unfinished, samples / max(abs(samples).max(), 1e-9), sounds.RATE)
        unfinished.rename(path)


def _stretch(voice):
    # What playing faster takes away is given back before.
    return round(voice.stretch * voice.tract, 3)
