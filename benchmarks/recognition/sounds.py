"""Sound as arrays of samples: files, rates, rooms, noise and music."""

import os
import subprocess
import threading
import wave
from pathlib import Path

import numpy as np

from digests import digest_of

# At which speech and noise are made; what the synthesisers and the recogniser know.
RATE = 16000
LOUDEST = 32767
# Of a person at a microphone, below full scale.
SPEECH_DECIBELS = -24
# Of a quiet room with a good microphone.
ROOM_DECIBELS = -72
NOISES = ("pink", "white")
MUSIC = ("piano", "guitar", "drums", "band")


def read(path):
    with wave.open(str(path)) as file:
        assert file.getsampwidth() == 2, path
        samples = np.frombuffer(file.readframes(file.getnframes()), "<i2").reshape(-1, file.getnchannels())
        return samples.mean(axis=1) / LOUDEST, file.getframerate()


def write(path, samples, rate):
    with wave.open(str(path), "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(rate)
        file.writeframes((np.clip(samples, -1, 1) * LOUDEST).round().astype("<i2").tobytes())


def resampled(samples, rate, wanted):
    """Exactly, by the spectrum: what the other rate cannot hold is gone, and nothing is folded."""
    if rate == wanted or not len(samples):
        return samples
    # Far from a round number a transform takes for ever, so there is silence at the end.
    padded = 1 << (len(samples) + 1024).bit_length()
    count = round(padded * wanted / rate)
    spectrum = np.fft.rfft(samples, padded)
    kept = np.zeros(count // 2 + 1, complex)
    size = min(len(spectrum), len(kept))
    kept[:size] = spectrum[:size]
    return np.fft.irfft(kept, count)[: round(len(samples) * wanted / rate)] * count / padded


def level(samples):
    """Root of the mean square."""
    return float(np.sqrt(np.mean(np.square(samples)))) if len(samples) else 0.0


def at_decibels(samples, decibels):
    return samples * (10 ** (decibels / 20) / max(level(samples), 1e-9))


def trimmed(samples):
    """Without the silence before and after.

    Low sounds are told from it by their energy. The H of "hey" and the end of "off" are no louder than what some voices
    have for silence, but of higher frequencies: those are told by how the samples differ from one another. The noise of
    the recordings is 40 dB below the loudest as it is, and 35 dB so.
    """
    sounding = np.flatnonzero(_sounding(samples, 35) | _sounding(np.diff(samples, prepend=samples[:1]), 30))
    return samples[sounding[0] * _TRIM_FRAME : (sounding[-1] + 1) * _TRIM_FRAME]


_TRIM_FRAME = RATE // 100


def _sounding(samples, decibels):
    """Which frames are within so many decibels of the loudest."""
    frames = samples[: len(samples) // _TRIM_FRAME * _TRIM_FRAME].reshape(-1, _TRIM_FRAME)
    energy = np.mean(np.square(frames), axis=1)
    return energy > energy.max() * 10 ** (-decibels / 10)


def noise(kind, count, random):
    """White, or pink: as much in each octave, as rain and the air in a room."""
    white = random.standard_normal(count)
    if kind == "white":
        return white
    size = 1 << count.bit_length()
    spectrum = np.fft.rfft(white, size)
    spectrum /= np.sqrt(np.maximum(np.arange(len(spectrum)), 20 * size / RATE))
    return np.fft.irfft(spectrum, size)[:count]


def in_room(samples, random):
    """In a small furnished room: a few early reflections, and an echo that has gone after 0.35 s."""
    length = int(0.35 * RATE)
    echo = random.standard_normal(length) * 10 ** (-3 * np.arange(length) / length)
    echo[: RATE // 100] = 0
    echo *= 0.5 / np.sqrt(np.sum(np.square(echo)))
    echo[0] = 1
    for delay in random.integers(RATE // 400, RATE // 40, 5):
        echo[delay] += random.uniform(-0.35, 0.35)
    size = 1 << (len(samples) + length).bit_length()
    both = np.fft.rfft(samples, size) * np.fft.rfft(echo, size)
    return np.fft.irfft(both, size)[: len(samples) + length // 2]


# Music that was made another way is made anew.
_MAKING = digest_of(__file__)


class Music:
    """Plays made-up pieces on a General MIDI sound font, kept in a cache."""

    SOUND_FONT = "/usr/share/sounds/sf2/TimGM6mb.sf2"

    def __init__(self, cache: Path):
        self._cache = cache
        cache.mkdir(parents=True, exist_ok=True)

    def play(self, kind, seconds, seed, rate):
        path = self._cache / f"{kind}-{seconds}-{seed}-{rate}-{_MAKING}.wav"
        if not path.exists():
            # Of this thread alone: another may want the same piece at the same time.
            score = path.with_suffix(f".{os.getpid()}.{threading.get_ident()}.mid")
            score.write_bytes(_midi(_piece(kind, seconds, np.random.default_rng([seed, MUSIC.index(kind)]))))
            unfinished = score.with_suffix(".wav")
            subprocess.run(
                ["fluidsynth", "-ni", "-q", "-g", "0.6", "-r", str(rate), "-T", "wav", "-O", "s16"]
                + ["-F", str(unfinished), self.SOUND_FONT, str(score)],
                check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            unfinished.rename(path)
            score.unlink()
        samples = read(path)[0][: seconds * rate]
        return np.pad(samples, (0, seconds * rate - len(samples)))


_TICKS = 480  # to a beat
_DRUMS = 9  # the channel, by convention
_PROGRAMS = {"piano": 0, "guitar": 25, "bass": 33, "organ": 16}


def _piece(kind, seconds, random):
    """Notes as (tick, channel, key, velocity, ticks), and which program each channel plays; four chords, varied."""
    beats = int(seconds * 2)  # at 120 a minute
    chords = [(48 + root, minor) for root, minor in zip(random.permutation([0, 2, 4, 5, 7, 9])[:4], (0, 1, 0, 1))]
    notes = []
    programs = {}

    def add(channel, beat, key, velocity, length):
        notes.append((int(beat * _TICKS), channel, int(key), int(velocity), int(length * _TICKS)))

    players = {"band": ("piano", "guitar", "bass", "drums")}.get(kind, (kind,))
    for beat in range(beats):
        root, minor = chords[beat // 4 % 4]
        triad = (root, root + 4 - minor, root + 7, root + 12)
        for channel, player in enumerate(players):
            programs[channel] = _PROGRAMS.get(player, 0)
            velocity = random.integers(60, 110)
            if player == "drums":
                add(_DRUMS, beat, 36 if beat % 2 == 0 else 38, 110, 0.5)
                for half in (0, 0.5):
                    add(_DRUMS, beat + half, 42, random.integers(50, 90), 0.25)
                if random.random() < 0.1:
                    add(_DRUMS, beat, 49, 100, 1)
            elif player == "bass":
                add(channel, beat, root - 12, velocity, 0.9)
            elif player == "guitar":
                for half in range(2):
                    for string, key in enumerate(triad):
                        add(channel, beat + half / 2 + string * 0.02, key + 12, velocity, 0.45)
            elif beat % 4 == 0:
                for key in triad:
                    add(channel, beat, key, velocity, 3.8)
            if player == "piano":
                for part in range(random.integers(1, 5)):
                    add(channel, beat + part / 4, random.choice(triad) + 24, random.integers(50, 115), 0.4)
    return notes, programs


def _midi(piece):
    notes, programs = piece
    events = [(0, bytes([0xC0 | channel, program])) for channel, program in programs.items()]
    for tick, channel, key, velocity, length in notes:
        events.append((tick, bytes([0x90 | channel, key, velocity])))
        events.append((tick + length, bytes([0x80 | channel, key, 0])))
    track = b""
    now = 0
    for tick, message in sorted(events, key=lambda event: event[0]):
        track += _variable_length(tick - now) + message
        now = tick
    track += b"\0\xff\x2f\0"
    header = b"MThd" + (6).to_bytes(4, "big") + bytes([0, 0, 0, 1]) + _TICKS.to_bytes(2, "big")
    return header + b"MTrk" + len(track).to_bytes(4, "big") + track


def _variable_length(number):
    result = bytes([number & 0x7F])
    while number := number >> 7:
        result = bytes([number & 0x7F | 0x80]) + result
    return result
