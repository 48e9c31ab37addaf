"""What Ardour says of itself over its remote protocol (OSC), and what it is told to begin with."""

import time

import liblo

from failure import Failure

_PORT = 3819
# What it reports of its own accord: buttons of tracks, a sign of life each second, the transport, bars and beats.
_FEEDBACK = 1 + 8 + 16 + 32
_ALL_STRIPS = 159
_MOST_TRIES = 5
_SAMPLES_A_BAR = 96000  # 4/4 at 120 beats a minute, 48 kHz


class Remote:
    """Blocks until Ardour answers; it goes on reporting what changes until this ends."""

    def __init__(self, patience_seconds, process):
        self._server = liblo.Server()
        self._ardour = liblo.Address("127.0.0.1", _PORT)
        self._said = {}
        self._server.add_method(None, None, self._hear)
        deadline = time.monotonic() + patience_seconds
        while "/position/bbt" not in self._said:
            if process.poll() is not None or time.monotonic() > deadline:
                raise Failure("Ardour did not come up, or its remote protocol did not")
            self._send("/set_surface", 0, _ALL_STRIPS, _FEEDBACK, 0, 0, 0, self._server.port)
            self._listen(1)

    def wait_until(self, holds, patience_seconds=20):
        """Whether it comes to hold. It is looked at after each report, and one comes each second at least."""
        deadline = time.monotonic() + patience_seconds
        while not holds():
            remaining = deadline - time.monotonic()
            if remaining <= 0:
                return False
            self._server.recv(int(1000 * remaining) + 1)
        return True

    def listen(self, seconds):
        """Takes in what is reported for so long: what must not happen would happen meanwhile."""
        self._listen(seconds)

    def rolls(self):
        return self._is_on("/toggle_roll")

    def records(self):
        return self.rolls() and self._is_on("/rec_enable_toggle")

    def is_track_armed(self):
        """The first track; without it, nothing of what is recorded is kept."""
        return self._said.get(("/strip/recenable", 1), [1, 0])[1] == 1

    def is_armed(self):
        """The session as a whole."""
        return self._is_on("/rec_enable_toggle")

    def loops(self):
        return self._is_on("/loop_toggle")

    def clicks(self):
        return self._is_on("/toggle_click")

    def position(self):
        """Bar, beat and ticks."""
        return tuple(int(part) for part in self._said["/position/bbt"][0].split("|"))

    def marks(self):
        """The marks around the playhead, as a text."""
        return self._said.get("/marker", [""])[0]

    def stop(self):
        if self.loops():
            self._send("/loop_toggle")
        self._send("/transport_stop")
        if self.is_armed():
            self._send("/rec_enable_toggle")
        self.need(lambda: not self.rolls() and not self.loops() and not self.is_armed(), "Ardour does not stop")

    def roll(self):
        self._insist(self.rolls, "Ardour does not roll", "/transport_play")

    def record(self):
        self._send("/rec_enable_toggle")
        self.need(self.is_armed, "Ardour does not arm")
        self.roll()

    def undo(self):
        self._send("/undo")

    def go_to_bar(self, bar):
        self._insist(lambda: self.position() == (bar, 1, 0), f"Ardour does not go to bar {bar}",
                     "/locate", (bar - 1) * _SAMPLES_A_BAR, 0)

    def set_loop(self, from_bar, to_bar):
        self._send("/loop_location", (from_bar - 1) * _SAMPLES_A_BAR, (to_bar - 1) * _SAMPLES_A_BAR)

    def click(self, on):
        if self.clicks() != on:
            self._send("/toggle_click")
        self.need(lambda: self.clicks() == on, "Ardour does not switch its click")

    def arm_track(self):
        self._send("/strip/recenable", 1, 1)
        self.need(self.is_track_armed, "the track is not armed")

    def save(self):
        self._send("/save_state")

    def need(self, holds, otherwise):
        if not self.wait_until(holds):
            raise Failure(otherwise)

    def _insist(self, holds, otherwise, path, *values):
        """Tells it again when it does not come to hold: while Ardour fades out from a stop, it does not hear."""
        for _ in range(_MOST_TRIES):
            self._send(path, *values)
            if self.wait_until(holds, 2):
                return
        raise Failure(otherwise)

    def _is_on(self, path):
        return bool(self._said.get(path, [0])[0])

    def _listen(self, seconds):
        deadline = time.monotonic() + seconds
        while (remaining := deadline - time.monotonic()) > 0:
            self._server.recv(int(1000 * remaining) + 1)

    def _hear(self, path, values):
        # What is about a track says first which.
        key = (path, values[0]) if path.startswith("/strip/") and len(values) > 1 else path
        self._said[key] = values

    def _send(self, path, *values):
        self._server.send(self._ardour, path, *values)
