"""How well the recogniser hears: script/bench recognition. See docs/recognition.md."""

import argparse
import json
import sys
import tempfile
import time
from concurrent.futures import ThreadPoolExecutor, as_completed
from pathlib import Path

import sounds
import summary
from cases import Corpus
from digests import digest_of
from hearing import GeneralModel, Program, name_of, sound_of
from voices import VOICES, Speech

_WHAT_MAKES_THE_CORPUS = [Path(__file__).with_name(f"{module}.py")
                          for module in ("cases", "hearing", "material", "recordings", "sounds", "voices")]

_BATCH_SECONDS = 200
# The general model's figures need fewer utterances: they are far from the others.
_GENERAL_EVERY = 5


def arguments():
    parser = argparse.ArgumentParser(prog="script/bench recognition")
    parser.add_argument("--half", choices=VOICES, default="develop",
                        help="voices and chance: those to develop with, or those to report")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--quick", action="store_true", help="a tenth of the utterances")
    parser.add_argument("--size", type=float, help="the share of the utterances; 1 is the whole")
    parser.add_argument("--hours", type=float, default=3.2, help="of synthesised talk, people talking, music and noise")
    parser.add_argument("--only", default="", help="groups whose names hold one of these texts, parted by semicolons")
    parser.add_argument("--jobs", type=int, default=2, help="how many to run at once")
    parser.add_argument("--fresh", action="store_true", help="forget the results that are there")
    parser.add_argument("--no-general", action="store_true", help="without the general model")
    parser.add_argument("--program", type=Path, required=True)
    parser.add_argument("--folder", type=Path, required=True, help="where sounds and results are kept")
    parser.add_argument("--document", type=Path, help="a document whose table, and pictures beside it, to write")
    parser.add_argument("--no-run", action="store_true", help="hear nothing more: the figures of what has been heard")
    parser.add_argument("--misses", action="store_true", help="list what was not right")
    parser.add_argument("--require", type=float, help="fail below this share of right ones, and at any wrong one")
    given = parser.parse_args()
    # Other programs are given these paths.
    given.folder = given.folder.resolve()
    given.size = given.size or (0.1 if given.quick else 1)
    if given.quick:
        given.hours = min(given.hours, 0.5)
    return given


class Rig:
    def __init__(self, given):
        self._given = given
        self._program = Program(given.program, given.folder)
        self._speech = Speech(given.folder / "voices")
        self._music = sounds.Music(given.folder / "music")

    def corpus(self):
        corpus = Corpus(self._given.half, self._given.seed, self._given.size, self._program.triggers(), self._given.hours)
        wanted = [text for text in self._given.only.split(";") if text]
        return [u for u in corpus.utterances if not wanted or any(text in u.group for text in wanted)]

    def run(self, utterances, results):
        """Appends the results of what is not among them yet."""
        open_batches = []
        for listener in ("program",) if self._given.no_general else ("program", "general"):
            done = {result["key"] for result in results.read() if result["listener"] == listener}
            mine = utterances if listener == "program" else [
                u for index, u in enumerate(utterances)
                if index % _GENERAL_EVERY == 0 and u.settings == "default" and not u.length and "commands" not in u.group]
            open_batches += [(listener, batch) for batch in _batches([u for u in mine if u.key not in done])]
        progress = Progress(sum(map(_length_guess, (u for _, batch in open_batches for u in batch))))
        with ThreadPoolExecutor(self._given.jobs) as pool:
            futures = {pool.submit(self._hear, listener, batch): batch for listener, batch in open_batches}
            try:
                for future in as_completed(futures):
                    results.append(future.result())
                    progress.advance(sum(map(_length_guess, futures[future])))
            except BaseException:
                pool.shutdown(cancel_futures=True)
                raise
        progress.end()

    def _hear(self, listener, batch):
        voices = VOICES[self._given.half]
        self._speech.prepare({(voices[u.voice], part) for u in batch for part in u.parts if isinstance(part, str)})
        with tempfile.TemporaryDirectory(dir=self._given.folder) as folder:
            paths, ends, seconds = [], [], []
            for index, utterance in enumerate(batch):
                samples, ended = sound_of(utterance, self._given.half, self._speech, self._music)
                rate = utterance.rate if listener == "program" else sounds.RATE
                paths.append(f"{folder}/{index}.wav")
                sounds.write(paths[-1], sounds.resampled(samples, utterance.rate, rate), rate)
                ends.append(ended)
                seconds.append(len(samples) / utterance.rate)
            hear = self._by_program if listener == "program" else self._by_general_model
            heard, processor, memory = hear(paths, batch[0].settings)
        expected = iter(self._program.decisions([text for u in batch for text in u.expected], batch[0].settings))
        return [{"key": u.key, "listener": listener, "group": u.group, "said": u.parts, "seconds": length,
                 "voice": voices[u.voice].name if u.voice is not None else None, "extendable": u.extendable,
                 "expected": [next(expected) for _ in u.expected], "ends": ended, **what,
                 "processor": processor * length / sum(seconds), "memory": memory}
                for u, what, ended, length in zip(batch, heard, ends, seconds)]

    def _by_program(self, paths, settings):
        files, processor, memory = self._program.listen(paths, settings)
        return [{"decisions": [name_of(event) for event in events if event["event"] == "command"],
                 "times": [event["t"] for event in events if event["event"] == "command"],
                 "heard": [event["text"] for event in events if event["event"] == "heard"],
                 "judged": [[event["nearest"], event["accepted"], event["score"], event["why"]]
                            for event in events if event["event"] == "judged"]}
                for events in files], processor, memory

    def _by_general_model(self, paths, settings):
        texts, processor, memory = GeneralModel().transcripts(paths)
        decisions = self._program.decisions(texts, settings)
        return [{"decisions": [decision] if decision else [], "heard": [text]}
                for decision, text in zip(decisions, texts)], processor, memory


def _length_guess(utterance):
    words = sum(len(part.split()) for part in utterance.parts if isinstance(part, str))
    return utterance.length or 1.7 + 0.4 * words + sum(p for p in utterance.parts if not isinstance(p, str))


def _batches(utterances):
    """Such as are heard with the same settings, so that the models are loaded once for many."""
    batches = {}
    for utterance in utterances:
        batches.setdefault(utterance.settings, [[]])
        if sum(map(_length_guess, batches[utterance.settings][-1])) > _BATCH_SECONDS:
            batches[utterance.settings].append([])
        batches[utterance.settings][-1].append(utterance)
    return [batch for some in batches.values() for batch in some]


class Results:
    """One JSON object a line, so that a run that was stopped goes on where it was."""

    def __init__(self, path, fresh):
        self._path = path
        if fresh:
            path.unlink(missing_ok=True)
        path.touch()
        # Without its end, the last one was being written when the run was stopped.
        whole = path.read_text()
        path.write_text(whole[: whole.rfind("\n") + 1])

    def read(self):
        return [json.loads(line) for line in self._path.read_text().splitlines()]

    def append(self, results):
        with self._path.open("a") as file:
            file.write("".join(json.dumps(result) + "\n" for result in results))


class Progress:
    def __init__(self, total):
        self._total, self._done, self._start = total, 0.0, time.monotonic()
        self._show()

    def advance(self, seconds):
        self._done += seconds
        self._show()

    def _show(self):
        if not self._total:
            return
        spent = time.monotonic() - self._start
        left = f"about {spent * (self._total / self._done - 1) / 60:.0f} min left" if self._done else "begins"
        text = f"{self._done / 60:.0f} of {self._total / 60:.0f} minutes of sound heard, {left}"
        print(f"\r{text}\033[K" if sys.stderr.isatty() else text, end="" if sys.stderr.isatty() else "\n",
              file=sys.stderr, flush=True)

    def end(self):
        if self._total and sys.stderr.isatty():
            print(file=sys.stderr)


def main():
    given = arguments()
    given.folder.mkdir(parents=True, exist_ok=True)
    rig = Rig(given)
    utterances = rig.corpus()
    # Another build of the program is another listener, and other sounds are other questions: neither is mixed with these.
    run = digest_of(given.program, *_WHAT_MAKES_THE_CORPUS)
    results = Results(given.folder / f"{given.half}-{given.seed}-{run}.jsonl", given.fresh)
    try:
        if not given.no_run:
            rig.run(utterances, results)
    except KeyboardInterrupt:
        print("\nstopped; the same command goes on from here", file=sys.stderr)
        return 130
    keys = {utterance.key for utterance in utterances}
    figures = summary.Figures([result for result in results.read() if result["key"] in keys])
    print(figures.table())
    if given.misses:
        print(figures.misses())
    if given.document:
        figures.write(given.document, given)
    return 0 if given.require is None or figures.holds(given.require) else 1


if __name__ == "__main__":
    sys.exit(main())
