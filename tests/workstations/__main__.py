"""Whether a command does in a workstation what it says: script/test workstations. See docs/workstations.md."""

import argparse
import hashlib
import json
import sys
import tempfile
from pathlib import Path

import ardour_trials
import guard
import lmms_trials
from ardour import Ardour
from desktop import Window
from failure import Failure
from lmms import Lmms
from program import Program
from trial import Result

_PROFILES = Path(__file__).parents[2] / "resources/workstations"

# Said aloud; the others are handed in as transcripts. They are of every kind: a place, a switch, a recording, a number.
_SPOKEN = {"play", "stop", "click on", "go to start", "start recording", "stop recording", "go to bar 25"}

# A profile's sentence, as an error says it.
_REFUSAL = "System Events got an error: {}"


def try_out(trial, say, wait_until, by_voice):
    try:
        known = trial.before()
        problem = say(f"hey logic {trial.phrase()}")
        if trial.is_refused:
            problem = "" if problem == _REFUSAL.format(trial.outcome) else problem or "it does not fail"
        if not problem and not wait_until(lambda: trial.after(known)):
            problem = f"it does not come to this: {trial.outcome}"
    except Failure as failure:
        problem = str(failure)
    result = Result(trial, by_voice, problem)
    print(result.line(), flush=True)
    return result


def try_all(program, trials, wait_until):
    """The results, in the order of the trials; what is spoken comes first."""
    results = {}
    with program.listen() as listening:
        for trial in trials:
            if is_spoken(trial):
                results[trial.command] = try_out(trial, listening.say, wait_until, True)
    for trial in trials:
        if not is_spoken(trial):
            results[trial.command] = try_out(trial, program.carry_out, wait_until, False)
    return [results[trial.command] for trial in trials]


def is_spoken(trial):
    return trial.command in _SPOKEN and not trial.is_refused


def try_ardour(given, folder):
    """Ardour, the results of the commands, and what the guard let through."""
    program = Program(given.program, folder)
    with Ardour(folder) as ardour:
        results = try_all(program, list(ardour_trials.trials(ardour)), ardour.remote.wait_until)
        problems = guard.problems(program, ardour, lambda title: Window(given.window, title, folder))
        return ardour, results, problems


def try_lmms(given, folder):
    """As above; the guard is the same for all workstations, and not tried again."""
    program = Program(given.program, folder)
    with Lmms(folder) as lmms:
        return lmms, try_all(program, list(lmms_trials.trials(lmms)), lmms.wait_until), []


# By the names of their profiles.
_WORKSTATIONS = {"ardour": try_ardour, "lmms": try_lmms}


def digest(profile):
    """Of its lines, but for comments and what it says of its trials: what is seen holds for these keys and no others."""
    lines = [line.strip() for line in profile.read_text().split("\n")]
    kept = "".join(f"{line}\n" for line in lines if not line.startswith(("//", '"tried"')))
    return hashlib.sha256(kept.encode()).hexdigest()


def note(path, name, version, profile, results):
    """What docs/workstations.md says of this workstation is made from this. That a command fails, the profile says itself."""
    seen = {result.trial.command: {"outcome": result.trial.outcome, "seen by": result.trial.seen_by,
                                   "spoken": result.by_voice} for result in results if not result.trial.is_refused}
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(json.dumps({"workstation": name, "version": version, "profile": profile, "commands": seen}, indent=2) + "\n")


def arguments():
    parser = argparse.ArgumentParser(prog="script/test workstations")
    parser.add_argument("--program", type=Path, required=True)
    parser.add_argument("--window", type=Path, required=True, help="the program that shows the keys it gets")
    parser.add_argument("--results", type=Path, required=True, help="the folder that what was seen is written into")
    parser.add_argument("workstation", nargs="*", help=f"which of {', '.join(_WORKSTATIONS)}; all if none is given")
    given = parser.parse_args()
    for name in given.workstation:
        if name not in _WORKSTATIONS:
            parser.error(f"{name} is none of {', '.join(_WORKSTATIONS)}")
    return given


def try_workstation(profile, given):
    """Whether all was well; what was seen is written down then."""
    with tempfile.TemporaryDirectory(prefix="workstations.") as folder:
        try:
            workstation, results, problems = _WORKSTATIONS[profile](given, Path(folder))
        except Failure as failure:
            print(f"script/test workstations: {failure}", file=sys.stderr)
            return False
    failed = [result for result in results if result.problem]
    for problem in problems:
        print(f"script/test workstations: {problem}", file=sys.stderr)
    refused = sum(result.trial.is_refused for result in results)
    print(f"{workstation.name} {workstation.version()}: {len(results) - len(failed)} of {len(results)} commands did what they "
          f"say, {refused} of them to fail with a sentence; {sum(result.by_voice for result in results)} were spoken; "
          f"{len(problems)} checks of the guard failed.")
    if failed or problems:
        return False
    file = f"{profile}.json"
    note(given.results / file, workstation.name, workstation.version(), digest(_PROFILES / file), results)
    return True


def main():
    given = arguments()
    # Each is tried, whatever became of the one before.
    return 0 if all([try_workstation(profile, given) for profile in given.workstation or _WORKSTATIONS]) else 1


if __name__ == "__main__":
    sys.exit(main())
