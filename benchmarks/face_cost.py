"""What the program in the status area costs; for script/bench, in a display with a session bus, a tray and a sound server.

face_cost.py PROGRAM SPEECH.wav: prints one line a figure. Compare within one run only.
"""

import os
import subprocess
import sys
import tempfile
import time

from process import Process

MEASURED_SECONDS = 10


def measure(process, what):
    cpu, wake_ups, begin = process.cpu_seconds(), process.wake_ups(), time.monotonic()
    time.sleep(MEASURED_SECONDS)
    seconds = time.monotonic() - begin
    print(f"{what:44} {100 * (process.cpu_seconds() - cpu) / seconds:6.1f} % of one core "
          f"{(process.wake_ups() - wake_ups) / seconds:7.1f} wake-ups/s {process.proportional_mib():7.1f} MiB", flush=True)


def main():
    program, speech = sys.argv[1:3]
    with tempfile.TemporaryDirectory() as home:
        environment = dict(os.environ, HOME=home, XDG_CONFIG_HOME=home + "/config", XDG_STATE_HOME=home + "/state")

        def ask(request):
            subprocess.run([program, request], env=environment, check=True)

        begin = time.monotonic()
        with subprocess.Popen([program], env=environment) as running:
            # The item is a window of the program's class inside the tray; the walkthrough has a title.
            while not subprocess.run(["xdotool", "search", "--onlyvisible", "--class", "^brivandel$"],
                                     capture_output=True).stdout:
                time.sleep(0.005)
            print(f"{'start to something of it on the screen':44} {1000 * (time.monotonic() - begin):6.0f} ms", flush=True)
            process = Process(running.pid)
            subprocess.run(["xdotool", "search", "--sync", "--name", "^Welcome to Brivandel$", "windowclose"], check=True)
            time.sleep(2)
            measure(process, "not listening, nothing open")
            ask("--popover")
            measure(process, "not listening, popover open")
            ask("--toggle")
            time.sleep(3)
            with subprocess.Popen(["paplay", "-d", "feed", speech]) as voice:
                measure(process, "listening to speech, popover open")
                voice.terminate()
            ask("--popover")
            time.sleep(3)
            with subprocess.Popen(["paplay", "-d", "feed", speech]) as voice:
                measure(process, "listening to speech, nothing open")
                voice.terminate()
            ask("--quit")


if __name__ == "__main__":
    main()
