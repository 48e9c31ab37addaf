"""The program under trial: a transcript handed in, or words spoken into the virtual microphone."""

import json
import os
import queue
import subprocess
import threading

from failure import Failure

_PATIENCE_SECONDS = 30
# Sound that comes while the input is being opened is lost. Said again too soon, it would be carried out twice.
_MOST_TRIES = 4
_SECONDS_UNTIL_SAID_AGAIN = 10


def _message(outcome):
    return outcome.get("error", {}).get("NSAppleScriptErrorMessage", "")


class Program:
    def __init__(self, binary, folder):
        self._binary = binary
        self._folder = folder
        self._environment = dict(os.environ, HOME=str(folder / "user"), XDG_CONFIG_HOME=str(folder / "user/config"),
                                 XDG_STATE_HOME=str(folder / "user/state"))
        self._environment.pop("BRIVANDEL_TARGET", None)

    def script_for(self, phrase):
        """What the program would have its script host run, had it heard this."""
        return self._decision_for(phrase)["script"]

    def carry_out(self, phrase):
        """Hands the phrase in as a transcript. The message of the error; empty for none."""
        return self.run_script(self.script_for(phrase))

    def run_script(self, script):
        with self.start_script(script) as running:
            return self.outcome(running)

    def start_script(self, script):
        running = subprocess.Popen([self._binary, "script", "--json"], env=self._environment, text=True,
                                   stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        running.stdin.write(script)
        running.stdin.close()
        running.stdin = None
        return running

    def outcome(self, running):
        try:
            output = running.communicate(timeout=_PATIENCE_SECONDS)[0]
        except subprocess.TimeoutExpired as hanging:
            running.kill()
            raise Failure("the script did not end") from hanging
        return _message(json.loads(output))

    def listen(self):
        return Listening(self._binary, self._environment, self._folder,
                         lambda phrase: self._decision_for(phrase)["command"])

    def _decision_for(self, phrase):
        decided = subprocess.run([self._binary, "try", "--json", phrase], env=self._environment, check=True, text=True,
                                 capture_output=True, timeout=_PATIENCE_SECONDS)
        return json.loads(decided.stdout)


class Listening:
    """Listens from entering to leaving."""

    def __init__(self, binary, environment, folder, command_of):
        self._command_of = command_of
        self._binary = binary
        self._environment = environment
        self._folder = folder
        self._events = queue.Queue()

    def __enter__(self):
        self._process = subprocess.Popen([self._binary, "listen", "--json"], env=self._environment, text=True,
                                         stdout=subprocess.PIPE)
        self._reader = threading.Thread(target=self._read)
        self._reader.start()
        if self._next("began") is None:
            self.__exit__()
            raise Failure("the program did not begin to listen")
        return self

    def __exit__(self, *_):
        self._process.terminate()
        self._process.wait()
        self._reader.join()

    def say(self, phrase):
        """Until it is heard and its script has ended. The message of the error; empty for none."""
        sound = self._spoken(phrase)
        for _ in range(_MOST_TRIES):
            subprocess.run(["paplay", "-d", "feed", sound], check=True, timeout=_PATIENCE_SECONDS)
            if (heard := self._next("command", _SECONDS_UNTIL_SAID_AGAIN)) is not None:
                if heard["command"] != self._command_of(phrase):
                    return f"it was heard as {heard['command']}"
                ended = self._next("script")
                return "its script did not end" if ended is None else _message(ended)
        return "it was not heard"

    def _spoken(self, phrase):
        bare, sound = self._folder / "bare.wav", self._folder / f"{phrase.replace(' ', '-')}.wav"
        subprocess.run(["flite", "-voice", "slt", "-t", phrase, "-o", bare], check=True)
        subprocess.run(["sox", bare, "-r", "48000", sound, "pad", "0.3", "0.6"], check=True)
        return sound

    def _next(self, kind, seconds=_PATIENCE_SECONDS):
        try:
            while (event := self._events.get(timeout=seconds)) is not None:
                if event.get("event") == kind:
                    return event
        except queue.Empty:
            pass
        return None

    def _read(self):
        for line in self._process.stdout:
            self._events.put(json.loads(line))
        self._events.put(None)
