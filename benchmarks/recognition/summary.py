"""What came of the utterances, as figures and a table."""

import math
import re
from collections import defaultdict

import drawing

NEGATIVE = ("sentences", "near misses", "bare commands")
LONG = ("ordinary speech", "people talking", "music", "noise")
LEVELS = (20, 15, 10, 5)


def outcome(result):
    """right, missed or wrong: a command that was not said is worse than none."""
    expected, decisions = result["expected"], result["decisions"]
    if decisions == expected:
        return "right"
    rest = iter(expected)
    return "missed" if all(decision in rest for decision in decisions) else "wrong"


def percentile(values, share):
    values = sorted(values)
    return values[min(len(values) - 1, math.ceil(share * len(values)) - 1)] if values else math.nan


def highest_rate(count, hours):
    """The upper end of the 95 % interval of a rate, when so many were counted (Poisson, one-sided)."""
    if not hours:
        return math.inf
    low, high = 0.0, 10.0 + 4 * count
    for _ in range(60):
        mean = (low + high) / 2
        chance = sum(math.exp(-mean) * mean**k / math.factorial(k) for k in range(count + 1))
        low, high = (mean, high) if chance > 0.05 else (low, mean)
    return high / hours


class Figures:
    def __init__(self, results):
        self._groups = {"program": defaultdict(list), "general": defaultdict(list)}
        for result in results:
            self._groups[result["listener"]][result["group"]].append(result)
        self._results = results

    def _share(self, groups, what, listener="program"):
        results = [r for group in groups for r in self._groups[listener].get(group, [])]
        return 100 * sum(outcome(r) == what for r in results) / len(results) if results else math.nan

    def _count(self, groups, listener="program"):
        return sum(len(self._groups[listener].get(group, [])) for group in groups)

    def _spoken_groups(self):
        return [g for g in self._groups["program"] if g not in LONG and not g.startswith(NEGATIVE)]

    def _rows(self):
        """Name and groups; what belongs together in the promise stands together before its parts."""
        names = self._spoken_groups()
        for level in LEVELS:
            disturbed = [n for n in names if n.endswith(f", {level} dB") and not n.startswith("white")]
            if disturbed:
                yield f"**pink noise and music, {level} dB**", disturbed
        after = [n for n in names if n.startswith("wake phrase, ")]
        if after:
            yield "**wake phrase, pause, command**", after
        for name in names:
            yield name, [name]

    def table(self):
        lines = ["| what is said | utterances | right % | wrong % | missed % | general model: right % | wrong % |",
                 "|---|---:|---:|---:|---:|---:|---:|"]
        for name, groups in sorted(self._rows(), key=lambda row: not row[0].startswith("**")):
            lines.append(_row(name, self._count(groups), *(self._share(groups, w) for w in ("right", "wrong", "missed")),
                              *(self._share(groups, w, "general") for w in ("right", "wrong"))))
        lines += ["", "| what is not meant for the program | utterances | fired % | general model: fired % |",
                  "|---|---:|---:|---:|"]
        for name in (g for g in self._groups["program"] if g.startswith(NEGATIVE)):
            lines.append(_row(name, self._count([name]), self._share([name], "wrong"),
                              self._share([name], "wrong", "general")))
        lines += ["", *self._long_table(), "", *self._delay_table(), "", *self._cost_lines()]
        return "\n".join(lines)

    def _long_table(self):
        yield "| for hours | hours | false activations | an hour, at most (95 %) |"
        yield "|---|---:|---:|---:|"
        every = []
        for name in LONG:
            results = self._groups["program"].get(name, [])
            every += results
            if results:
                yield _long_row(name, results)
        if every:
            yield _long_row("together", every)
        else:
            yield "| none measured | – | – | – |"

    def delays(self, extendable):
        return [r["times"][0] - r["ends"][-1] for r in self._groups["program"].get("natural voices, clean", [])
                if r["extendable"] is extendable and outcome(r) == "right" and r["times"]]

    def _delay_table(self):
        yield "| delay after the end of speech | phrases | median s | 90th percentile s | longest s |"
        yield "|---|---:|---:|---:|---:|"
        for name, extendable in (("phrases that nothing extends", False), ("phrases that may go on", True)):
            delays = self.delays(extendable)
            yield _row(name, len(delays), *(f"{percentile(delays, share):.2f}" for share in (0.5, 0.9, 1)))

    def _cost_lines(self):
        yield "| cost | of the processor, seconds a second of sound | memory at most, MB |"
        yield "|---|---:|---:|"
        kinds = {"speech": lambda r: r["group"] == "ordinary speech", "music": lambda r: r["group"] == "music",
                 "commands, with silence around them": lambda r: r["group"] == "natural voices, clean"}
        for listener, name in (("program", ""), ("general", "general model: ")):
            for kind, belongs in kinds.items():
                results = [r for r in self._results if r["listener"] == listener and belongs(r)]
                if results:
                    cost = sum(r["processor"] for r in results) / sum(r["seconds"] for r in results)
                    yield _row(name + kind, f"{cost:.3f}", f"{max(r['memory'] for r in results) / 1e6:.0f}")

    def misses(self):
        lines = []
        for result in self._results:
            if result["listener"] == "program" and outcome(result) != "right":
                said = " … ".join(part for part in result["said"] if isinstance(part, str))
                why = "; ".join(f"{text} {score} ({why})" for text, _, score, why in result["judged"])
                lines.append(f"{outcome(result):6} | {result['group']} | {result['voice']} | {said[:100]} → "
                             f"{result['decisions']} | {why}")
        return "\n".join(sorted(lines))

    def holds(self, least):
        spoken = [r for r in self._results if r["listener"] == "program"]
        wrong = [r for r in spoken if outcome(r) == "wrong"]
        right = sum(outcome(r) == "right" for r in spoken) / len(spoken)
        print(f"right {100 * right:.1f} % (at least {100 * least:.0f}), wrong {len(wrong)} (none)")
        return right >= least and not wrong

    def write(self, document, given):
        """Replaces what stands between the marks in the document, and draws the pictures beside it."""
        text = document.read_text()
        heard = [r for r in self._results if r["listener"] == "program"]
        hours = sum(r["seconds"] for r in heard) / 3600
        head = (f"Voices of the half “{given.half}”, seed {given.seed}, {100 * given.size:.0f} % of the corpus: "
                f"{len(heard)} utterances, {hours:.1f} hours of sound.")
        document.write_text(re.sub(r"(<!-- figures -->\n).*(<!-- end of figures -->)",
                                   lambda m: f"{m[1]}\n{head}\n\n{self.table()}\n\n{m[2]}", text, flags=re.DOTALL))
        kinds = [g.removesuffix(", 20 dB") for g in self._spoken_groups() if g.endswith(", 20 dB")]
        clean = self._share(["natural voices, clean"], "right")
        curves = {kind: [clean] + [self._share([f"{kind}, {level} dB"], "right") for level in LEVELS] for kind in kinds}
        wrong = [self._share([f"{kind}, {level} dB" for kind in kinds], "wrong") for level in LEVELS]
        drawing.noise_picture(document.with_name("recognition-noise.svg"), ["clean", *(f"{n} dB" for n in LEVELS)], curves,
                              [self._share(["natural voices, clean"], "wrong"), *wrong])
        drawing.delay_picture(document.with_name("recognition-delay.svg"),
                              {"nothing extends it": self.delays(False), "may go on": self.delays(True)})


def _row(*cells):
    def text(cell):
        if isinstance(cell, float):
            return "–" if math.isnan(cell) else f"{cell:.1f}"
        return str(cell)
    return "| " + " | ".join(map(text, cells)) + " |"


def _long_row(name, results):
    hours = sum(r["seconds"] for r in results) / 3600
    fired = sum(len(r["decisions"]) for r in results)
    return _row(name, f"{hours:.2f}", fired, f"{highest_rate(fired, hours):.2f}")
