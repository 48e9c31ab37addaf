"""Makes the sound of utterances, and has the program, or the general model, listen to it."""

import json
import os
import plistlib
import re
import subprocess
import tempfile
import threading
from pathlib import Path

import numpy as np

import material
import recordings
import sounds
from measured import measured
from voices import VOICES

# Before speech. What plays on has been playing; a person in a room takes a breath.
_LEAD = {True: 2.0, False: 0.7}
_TRAIL = 1.0
_MODEL = Path("/usr/share/pocketsphinx/model/en-us")


def sound_of(utterance, half, speech, music):
    """The samples at its rate, and when each of its texts ends in seconds."""
    random = np.random.default_rng(utterance.seed)
    noisy = utterance.snr is not None
    if utterance.voice is None:
        spoken, ends = np.zeros(utterance.length * sounds.RATE), []
    else:
        spoken, ends = _spoken(utterance, VOICES[half][utterance.voice], speech, _LEAD[noisy])
    if utterance.echo:
        spoken = sounds.in_room(spoken, random)
    if utterance.length:
        spoken = spoken[: utterance.length * sounds.RATE]
    spoken = sounds.resampled(spoken, sounds.RATE, utterance.rate)
    count = len(spoken)
    if utterance.background == "silence":
        return spoken, ends
    if utterance.background in sounds.MUSIC:
        whole = music.play(utterance.background, max(60, utterance.length), int(utterance.seed % 8), utterance.rate)
        begin = 0 if utterance.length else int(random.integers(len(whole) - count))
        background = whole[begin : begin + count]
    else:
        kind = "pink" if utterance.background == "room" else utterance.background
        background = sounds.resampled(sounds.noise(kind, count * sounds.RATE // utterance.rate + 1, random),
                                      sounds.RATE, utterance.rate)[:count]
    loudness = utterance.decibels - utterance.snr if noisy else sounds.SPEECH_DECIBELS
    if utterance.background == "room":
        loudness = sounds.ROOM_DECIBELS
    return spoken + sounds.at_decibels(background, loudness), ends


def _spoken(utterance, voice, speech, lead):
    pieces = [np.zeros(int(lead * sounds.RATE))]
    ends = []
    for part in utterance.parts:
        if isinstance(part, str):
            pieces.append(sounds.at_decibels(speech.say(voice, part), utterance.decibels))
            ends.append(sum(map(len, pieces)) / sounds.RATE)
        else:
            pieces.append(np.zeros(int(part * sounds.RATE)))
    pieces.append(np.zeros(int(_TRAIL * sounds.RATE)))
    return np.concatenate(pieces), ends


def name_of(decision):
    """What a decision comes to, whichever trigger led to it; none when there is none."""
    kind = decision.get("kind", "none")
    return None if kind == "none" else f"{kind} {decision.get('command', '')}".strip()


class Program:
    """The program itself, run with settings of its own."""

    def __init__(self, path, folder):
        self._path = path
        self._folder = Path(folder)
        self._homes = {}

    def _environment(self, settings):
        home = self._folder / "settings" / re.sub("[^a-z]+", "-", settings)
        if settings not in self._homes:
            (home / "brivandel").mkdir(parents=True, exist_ok=True)
            # Another thread may write the same, and a program read it.
            unfinished = home / f"{threading.get_ident()}.plist"
            unfinished.write_bytes(plistlib.dumps(_stored(settings)))
            unfinished.rename(home / "brivandel" / "defaults.plist")
            self._homes[settings] = home
        return {**os.environ, "XDG_CONFIG_HOME": str(home), "XDG_STATE_HOME": str(home)}

    def triggers(self):
        lines = subprocess.run([self._path, "commands", "--json"], env=self._environment("default"),
                               check=True, capture_output=True).stdout.splitlines()
        rows = [json.loads(line) for line in lines]
        return [trigger for row in rows for trigger in row["triggers"] if row["category"] != "Navigation"]

    def decisions(self, texts, settings):
        """What each text would lead to."""
        if not texts:
            return []
        lines = subprocess.run([self._path, "try", "--json", "-"], input="\n".join(texts).encode(), check=True,
                               capture_output=True, env=self._environment(settings)).stdout.splitlines()
        return [name_of(json.loads(line)) for line in lines]

    def listen(self, paths, settings):
        """For each file its events, and what the whole took: seconds of the processor, bytes at most."""
        with tempfile.TemporaryFile() as out:
            processor, memory = measured([self._path, "listen", "--dry-run", "--json", *paths], stdout=out,
                                         env=self._environment(settings))
            out.seek(0)
            events = {str(path): [] for path in paths}
            for line in out:
                event = json.loads(line)
                events[event["file"]].append(event)
        return list(events.values()), processor, memory


def _stored(settings):
    """Of settings such as "custom", "recorded, no wake phrase" and "wake phrase: maestro"."""
    stored = {}
    for setting in settings.split(", "):
        match setting.split(": "):
            case ["default"]:
                pass
            case ["no wake phrase"]:
                stored["useWakeWord"] = False
            case ["wake phrase", wake]:
                stored["wakeWord"] = wake
            case ["custom"]:
                stored["customCommands"] = _custom_commands(material.CUSTOM_PHRASES)
            case ["recorded"]:
                stored["customCommands"] = _custom_commands(recordings.PHRASES)
            case _:
                raise ValueError(f"no such setting: {setting}")
    return stored


def _custom_commands(phrases):
    key = {"keyCode": 1, "modifierFlags": 0, "displayString": "S", "appleScript": ""}
    commands = [{"id": f"00000000-0000-0000-0000-{index:012}", "name": phrase, "triggers": [phrase],
                 "capturedKey": key, "isEnabled": True} for index, phrase in enumerate(phrases)]
    return json.dumps(commands).encode()


class GeneralModel:
    """The engine's own program with its large model of English and its own defaults, a file at a time."""

    def transcripts(self, paths):
        """paths: at 16 kHz."""
        with tempfile.TemporaryDirectory() as folder:
            control = Path(folder) / "control"
            control.write_text("".join(f"{Path(path).with_suffix('')}\n" for path in paths))
            heard = Path(folder) / "heard"
            processor, memory = measured(
                ["pocketsphinx_batch", "-hmm", _MODEL / "en-us", "-lm", _MODEL / "en-us.lm.bin",
                 "-dict", _MODEL / "cmudict-en-us.dict", "-adcin", "yes", "-adchdr", "44", "-cepext", ".wav",
                 "-ctl", control, "-hyp", heard],
                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            # "the words (name of the file -score)", in the order of the files.
            texts = [line.rpartition("(")[0].strip() for line in heard.read_text().splitlines()]
        if len(texts) != len(paths):
            raise RuntimeError(f"the general model answered for {len(texts)} of {len(paths)} files")
        return texts, processor, memory
