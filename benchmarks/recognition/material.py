"""What is said: phrases, numbers, and talk that is not meant for the program."""

import re
from itertools import product
from pathlib import Path

SMALL = ("zero one two three four five six seven eight nine ten eleven twelve thirteen fourteen fifteen sixteen "
         "seventeen eighteen nineteen").split()
TENS = "twenty thirty forty fifty sixty seventy eighty ninety".split()

# "thirteen" and "thirty", and their like.
TEENS_AND_TENS = [*range(13, 20), *range(30, 100, 10)]

SWITCHES = ["enable trigger word", "trigger word on", "disable trigger word", "trigger word off"]

# A command, what makes another one of it after a moment's thought, and how that is written.
AMBIGUOUS = [("stop", "recording", "stop recording"), ("stop", "playback", "stop playback"),
             ("play", "that back", "play that back"), ("play", "it back", "play it back"),
             ("save", "project", "save project"), ("save", "as", "save as"),
             ("loop this", "section", "loop this section"), ("go to bar twenty", "five", "go to bar 25"),
             ("go to bar seven", "hundred", "go to bar 700"), ("play from bar forty", "two", "play from bar 42"),
             ("go to bar one", "twelve", "go to bar 112")]

# Words that the dictionary lacks, and such as studios use.
CUSTOM_PHRASES = ["quantize everything", "mute the synth", "new arpeggiator", "crossfade it", "open the sidechain",
                  "overdub take", "unmute vocals", "flex pitch", "bounce in place", "solo the kick drum", "reverb send",
                  "tap tempo", "hide the plugins", "drum machine designer", "transpose up", "next marker"]

OTHER_WAKE_PHRASES = ["maestro", "okay computer", "hello brivandel", "studio assistant", "hey quincy"]

_NEARLY_WAKE = ["hey magic", "hey logan", "hey lodger", "hey garlic", "the music", "okay magic", "a logistic",
                "hey ludwig", "hey topic", "hey plastic", "say logically", "hate lyrics", "hey project", "they launch it",
                "hey doctor", "hello jack", "hey object", "hey biology", "hey lovely chick", "hay loft"]
_NEARLY_COMMANDS = ["stay", "plate", "splash", "sock", "paws", "rework it", "fast food", "start reading",
                    "unduly", "cave project", "the loop is nice", "a bowl of soup", "count the inn", "delay that pack",
                    "go to stars", "go to bed", "go to the park", "lift on", "quick cough", "what do you think",
                    "how are you today", "sky ahead", "metro station", "skip a beat", "we wind down", "go to far lands", "soup",
                    "the lead last ache", "clay", "boss", "enable troop", "sage approach", "too bar twelve", "crow bar",
                    "play doh", "what time is it", "turn the lights off", "call my mother", "start the car"]

_STUDIO = [
    ("I think", "maybe", "you know", "honestly", "look", "well", "yeah so", "listen", "okay", "right"),
    ("the chorus", "the bridge", "that second verse", "the bass line", "his guitar", "the vocal", "the snare",
     "our last song", "the piano part", "this mix", "the intro", "the whole arrangement"),
    ("could be", "sounds", "should be", "was", "feels", "is still", "needs to be", "seems"),
    ("a little", "way too", "much", "so", "really", "not", "kind of", "a bit more"),
    ("loud", "slow", "quiet", "bright", "dark", "busy", "tight", "far away", "warm", "lazy", "harsh", "short"),
    ("in the headphones", "before lunch", "at the end", "for the singer", "compared to yesterday", "when she comes in",
     "on the small speakers", "after the fill", "with the new strings", "if you ask me", "to my ears", "up there"),
]
_LOGIC = [
    ("the logic of", "there is no logic in", "I use logic for", "she learned logic on", "you need some logic in",
     "we mixed it in logic with", "logic is better than", "my copy of logic broke", "I updated logic because of",
     "it is a question of logic and", "he teaches logic and", "logic tells me about", "by that logic we lose",
     "that is not logic but", "pure logic will not help"),
    ("this argument", "the old desk", "every band I know", "his new record label", "most of my students", "the weather",
     "a good story", "their first album", "cheap microphones", "the whole film", "my brother", "modern music"),
    ("", "as far as I can tell", "and that is fine", "which is strange", "or so they say", "at least in winter"),
]


def words_of(number):
    """A number below a hundred."""
    if number < 20:
        return [SMALL[number]]
    return [TENS[number // 10 - 2], *([SMALL[number % 10]] if number % 10 else [])]


def ways_to_say(number):
    """The ways in which people say 0 to 999, each a text."""
    hundreds, rest = divmod(number, 100)
    if hundreds == 0:
        ways = [words_of(number)]
    elif rest == 0:
        ways = [[SMALL[hundreds], "hundred"]]
    else:
        start = [SMALL[hundreds], "hundred"]
        pair = words_of(rest) if rest >= 10 else ["oh", *words_of(rest)]
        ways = [start + words_of(rest), start + ["and"] + words_of(rest), [SMALL[hundreds]] + pair]
        ways.append([SMALL[int(digit)] if digit != "0" else "zero" for digit in str(number)])
    return [" ".join(way) for way in ways]


def can_go_on(words):
    """Whether a bar number that is said like that may have more words."""
    last = words.split()[-1]
    return last in SMALL[1:] and len(words.split()) == 1 or last in TENS or last == "hundred"


def _sentences(parts, count, random):
    chosen = set()
    while len(chosen) < count:
        chosen.add(" ".join(str(random.choice(part)) for part in parts).strip())
    return sorted(chosen)


def studio_talk(count, random):
    return _sentences(_STUDIO, count, random)


def sentences_with_logic(count, random):
    return _sentences(_LOGIC, count, random)


def near_misses(commands, half):
    """A wake phrase that is none before a command, and a command that is none after the wake phrase."""
    wakes = [wake for index, wake in enumerate(_NEARLY_WAKE) if index % 2 == (half == "report")]
    others = [words for index, words in enumerate(_NEARLY_COMMANDS) if index % 2 == (half == "report")]
    return [f"{wake}, {command}" for wake, command in product(wakes, commands)], [f"hey logic, {o}" for o in others]


def prose():
    """Sentences of ordinary length, enough for hours: the licences that every Debian system carries."""
    text = " ".join(path.read_text(errors="replace") for path in sorted(Path("/usr/share/common-licenses").iterdir())
                    if path.is_file() and not path.is_symlink())
    sentences = re.split(r"(?<=[.;:])\s+", text)
    plain = (" ".join(re.findall(r"[A-Za-z']+", sentence)) for sentence in sentences)
    return sorted({sentence for sentence in plain if 5 <= len(sentence.split()) <= 30})
