"""Whether a command does in a workstation what it says: script/test workstations. See docs/workstations.md."""

import argparse
import hashlib
import json
import sys
import tempfile
from pathlib import Path

import ardour_trials
import guard
from ardour import Ardour
from desktop import Window
from failure import Failure
from program import Program
from trial import Result

_PROFILES = Path(__file__).parents[2] / "resources/workstations"

# Said aloud; the others are handed in as transcripts. They are of every kind: a place, a switch, a recording, a number.
_SPOKEN = {"play", "stop", "click on", "go to start", "start recording", "stop recording", "go to bar 25"}


def try_out(trial, say, wait_until, by_voice):
    try:
        known = trial.before()
        problem = say(f"hey logic {trial.phrase()}")
        if not problem and not wait_until(lambda: trial.after(known)):
            problem = f"it does not come to this: {trial.outcome}"
    except Failure as failure:
        problem = str(failure)
    result = Result(trial, by_voice, problem)
    print(result.line(), flush=True)
    return result


def try_ardour(given, folder):
    """The results of the commands, and what the guard let through."""
    program = Program(given.program, folder)
    with Ardour(folder) as ardour:
        wait_until = ardour.remote.wait_until
        trials = list(ardour_trials.trials(ardour))
        results = [try_out(trial, program.carry_out, wait_until, False) for trial in trials if trial.command not in _SPOKEN]
        with program.listen() as listening:
            results += [try_out(trial, listening.say, wait_until, True) for trial in trials if trial.command in _SPOKEN]
        problems = guard.problems(program, ardour, lambda title: Window(given.window, title, folder))
        order = [trial.command for trial in trials]
        results.sort(key=lambda result: order.index(result.trial.command))
        return ardour, results, problems


def digest(profile):
    """Of its lines, but for comments and what it says of its trials: what is seen holds for these keys and no others."""
    lines = [line.strip() for line in profile.read_text().split("\n")]
    kept = "".join(f"{line}\n" for line in lines if not line.startswith(("//", '"tried"')))
    return hashlib.sha256(kept.encode()).hexdigest()


def note(path, name, version, profile, results):
    """What docs/workstations.md says of this workstation is made from this."""
    seen = {result.trial.command: {"outcome": result.trial.outcome, "seen by": result.trial.seen_by,
                                   "spoken": result.by_voice} for result in results}
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(json.dumps({"workstation": name, "version": version, "profile": profile, "commands": seen}, indent=2) + "\n")


def arguments():
    parser = argparse.ArgumentParser(prog="script/test workstations")
    parser.add_argument("--program", type=Path, required=True)
    parser.add_argument("--window", type=Path, required=True, help="the program that shows the keys it gets")
    parser.add_argument("--results", type=Path, required=True, help="the folder that what was seen is written into")
    return parser.parse_args()


def main():
    given = arguments()
    with tempfile.TemporaryDirectory(prefix="workstations.") as folder:
        try:
            ardour, results, problems = try_ardour(given, Path(folder))
        except Failure as failure:
            print(f"script/test workstations: {failure}", file=sys.stderr)
            return 1
    failed = [result for result in results if result.problem]
    for problem in problems:
        print(f"script/test workstations: {problem}", file=sys.stderr)
    print(f"{ardour.name} {ardour.version()}: {len(results) - len(failed)} of {len(results)} commands did what they say, "
          f"{sum(result.by_voice for result in results)} of them spoken; "
          f"{len(problems)} checks of the guard failed.")
    if failed or problems:
        return 1
    note(given.results / "ardour.json", ardour.name, ardour.version(), digest(_PROFILES / "ardour.json"), results)
    return 0


if __name__ == "__main__":
    sys.exit(main())
