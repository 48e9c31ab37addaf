"""What a workstation plays: silence, or a bar, each bar of its song having a pitch of its own."""

import array
import itertools
import math
import statistics
import subprocess
import time
from collections import deque

_RATE = 44100
_BLOCK = _RATE // 10
# Between what ends and what begins, the two are heard at once.
_SETTLED_BLOCKS = 5
_AUDIBLE = 300
_A4_HZ, _A4_KEY = 440, 57

SILENCE = 0


def key_of_bar(bar):
    """Minor thirds, so that the pitch needs no fine ear."""
    return 42 + 3 * bar


class Hearing:
    """Listens to a sink while it is waited for something."""

    def __init__(self, sink):
        self._sink = sink
        self._recent = deque(maxlen=_SETTLED_BLOCKS)

    def wait_until(self, holds, patience_seconds):
        """Whether it comes to hold. It is looked at after each tenth of a second of sound."""
        deadline = time.monotonic() + patience_seconds
        self._recent.clear()
        with subprocess.Popen(["parec", "-d", f"{self._sink}.monitor", "--raw", "--format=s16ne", f"--rate={_RATE}",
                               "--channels=1", "--latency-msec=20"], stdout=subprocess.PIPE) as recorder:
            try:
                while time.monotonic() < deadline and len(block := recorder.stdout.read(2 * _BLOCK)) == 2 * _BLOCK:
                    self._recent.append(_bar_in(array.array("h", block)))
                    if holds():
                        return True
            finally:
                recorder.terminate()
                recorder.wait()  # before its pipe is closed, of which it would complain
        return False

    def heard(self):
        """A bar or SILENCE; None until it has been the same for half a second."""
        settled = len(self._recent) == _SETTLED_BLOCKS and len(set(self._recent)) == 1
        return self._recent[0] if settled else None


def _bar_in(samples):
    """None for what is neither silence nor the tone of a bar."""
    if max(map(abs, samples)) < _AUDIBLE:
        return SILENCE
    rises = [at for at in range(1, len(samples)) if samples[at - 1] < 0 <= samples[at]]
    if len(rises) < 2:
        return None
    # On a busy machine there are gaps: most periods of a tone are whole, all the same.
    period = statistics.median(later - earlier for earlier, later in itertools.pairwise(rises))
    key = _A4_KEY + 12 * math.log2(_RATE / period / _A4_HZ)
    bar = round((key - key_of_bar(0)) / 3)
    return bar if abs(key - key_of_bar(bar)) < 0.5 else None
