"""The figures of a soak, and what of them is not as it must be."""

import itertools
from dataclasses import dataclass

from keys import is_the_key

# What may come and go with the moment of measuring.
_SPARE_DESCRIPTORS = 4
_SPARE_THREADS = 2
# Of memory, from the end of warming up to the last measurement. The decoders keep their tables, which have the size of the
# longest piece of sound that they met: with music in the room that takes a while, and is over after this share of an hour.
_WARMING_UP = 0.25
_SPARE_MIB = 8.0
_SPARE_MIB_AN_HOUR = 4.0
# Of the commands that were said, the share that must be carried out for the program to be called listening.
_LEAST_HEARD = 0.5


@dataclass
class Point:
    """One measurement; what is counted is counted from the beginning."""

    minutes: float
    resident_mib: float
    private_mib: float
    descriptors: int
    threads: int
    cpu_seconds: float
    said: int
    sent: int
    arrived: int


def table(points):
    lines = ["| minutes | memory MiB | of its own MiB | descriptors | threads | processor % | commands said | sent "
             "| keys arrived |", "|---:|---:|---:|---:|---:|---:|---:|---:|---:|"]
    for before, point in zip([None, *points], points):
        share = "–"
        if before:
            share = f"{100 * (point.cpu_seconds - before.cpu_seconds) / (60 * (point.minutes - before.minutes)):.1f}"
        lines.append(f"| {point.minutes:.1f} | {point.resident_mib:.1f} | {point.private_mib:.1f} | {point.descriptors} "
                     f"| {point.threads} | {share} | {point.said} | {point.sent} | {point.arrived} |")
    return "\n".join(lines)


def disagreement(commands, arrived):
    """The first place where the keys that arrived are not those that were sent; none when they agree."""
    sent = [(key, command.label) for command in commands for key in command.keys]
    for index, (one, other) in enumerate(itertools.zip_longest(sent, arrived)):
        if one is None:
            return f"key {index + 1} arrived though nothing more was sent: {other['keysym']}"
        key, label = one
        if other is None:
            return f"{len(sent)} keys were sent and {len(arrived)} arrived; the first that is missing is {key} of “{label}”"
        if not is_the_key(other, key):
            held = "+".join([*other["modifiers"], other["keysym"]])
            return f"key {index + 1} is {key} of “{label}”, and {held} arrived"
    return None


def complaints(points, log, arrived):
    """What is not as it must be; nothing when all is well."""
    found = []
    if problem := disagreement(log.commands, arrived):
        found.append(problem)
    found += [f"a script failed: {failure}" for failure in log.failures]
    found += [f"listening failed: {error}" for error in log.errors]
    said = points[-1].said
    if points[-1].sent < _LEAST_HEARD * said:
        found.append(f"{said} commands were said and only {points[-1].sent} carried out")
    for before, point in zip(points, points[1:]):
        if point.said - before.said >= 5 and point.sent == before.sent:
            found.append(f"from minute {before.minutes:.1f} to {point.minutes:.1f} nothing was heard")
    if len(points) < 3:
        return [*found, "it was too short to say whether anything grows"]
    end = points[-1]
    warm = next(point for point in points[1:] if point.minutes >= _WARMING_UP * end.minutes)
    spare = _SPARE_MIB + _SPARE_MIB_AN_HOUR * (end.minutes - warm.minutes) / 60
    for name, grown, allowed in (
            ("memory, in MiB,", end.resident_mib - warm.resident_mib, spare),
            ("descriptors", end.descriptors - warm.descriptors, _SPARE_DESCRIPTORS),
            ("threads", end.threads - warm.threads, _SPARE_THREADS)):
        if grown > allowed:
            found.append(f"{name} grew by {grown:.3g} from minute {warm.minutes:.1f} to {end.minutes:.1f}; "
                         f"{allowed:.3g} is allowed")
    return found
