"""People who spoke before a microphone: the prompts of a telephone exchange, which Debian packages at 16 kHz."""

import subprocess
import tempfile
from pathlib import Path

import sounds

_FOLDER = Path("/usr/share/asterisk/sounds")

# By language. English and Spanish are of one woman, French and Russian of one each, Italian of a man.
SPEAKERS = {"en": "en_US_f_Allison", "es": "es_MX_f_Allison", "fr": "fr_CA_f_June", "it": "it_IT_m_Carlo",
            "ru": "ru_RU_f_IvrvoiceRU"}

# What is said in short ones in English, and in which file. None holds another, or what the program has already.
WAKE_PHRASES = {"hello world": "hello-world", "one moment please": "one-moment-please"}
PHRASES = {
    "all circuits are busy now": "all-circuits-busy-now", "thank you": "auth-thankyou",
    "activated": "activated", "call forwarding": "call-forwarding", "call waiting": "call-waiting", "calling": "calling",
    "cancelled": "cancelled", "that conference is full": "conf-full", "this conference is locked": "conf-locked",
    "the conference is now locked": "conf-lockednow", "the conference is now unlocked": "conf-unlockednow",
    "you are now muted": "conf-muted", "you are now unmuted": "conf-unmuted",
    "the conference has ended": "confbridge-conf-end", "to leave the conference": "confbridge-leave-in",
    "to exit the menu": "confbridge-menu-exit-in", "welcome to the directory": "dir-welcome", "disabled": "disabled",
    "do not disturb": "do-not-disturb", "enabled": "enabled", "goodbye": "goodbye", "i'm sorry": "im-sorry",
    "is in use": "is-in-use",
    "left brace": "letters/ascii123", "right brace": "letters/ascii125", "open parenthesis": "letters/ascii40",
    "close parenthesis": "letters/ascii41", "semicolon": "letters/ascii59", "less than": "letters/ascii60",
    "greater than": "letters/ascii62", "question mark": "letters/ascii63", "left bracket": "letters/ascii91",
    "backslash": "letters/ascii92", "right bracket": "letters/ascii93", "underscore": "letters/ascii95",
    "exclamation point": "letters/exclaimation-point", "lowercase": "lowercase", "uppercase": "uppercase",
    "please try again": "please-try-again", "removed": "removed", "something is terribly wrong": "something-terribly-wrong",
    "speed dial": "speed-dial", "telephone number": "telephone-number", "to call this number": "to-call-this-number",
    "to extension": "to-extension", "to listen to it": "to-listen-to-it",
    "folder five": "vm-Cust1", "folder six": "vm-Cust2", "folder seven": "vm-Cust3", "family": "vm-Family",
    "friends": "vm-Friends", "message deleted": "vm-deleted", "message undeleted": "vm-undeleted",
    "message marked urgent": "vm-marked-urgent", "no more messages": "vm-nomore",
}
BUILT_IN_PHRASES = {"pause": "dictate/pause", "playback": "dictate/playback", "record": "dictate/record"}
_FILES = {**WAKE_PHRASES, **PHRASES, **BUILT_IN_PHRASES}
# Whatever the language.
_NO_SPEECH = ("ascending-2tone", "beep", "beeperr", "confbridge-join", "confbridge-leave", "descending-2tone", "tt-monkeys")


def files(speaker):
    """The names of all in which a speaker says something, sorted."""
    folder = _FOLDER / speaker
    if not folder.exists():
        raise FileNotFoundError(f"{folder}: script/setup bench installs it")
    # One of the Russian ones is empty.
    names = (path.relative_to(folder).with_suffix("").as_posix()
             for path in folder.rglob("*.g722") if path.stat().st_size)
    return sorted(name for name in names if not name.startswith("silence/") and name not in _NO_SPEECH)


def path_of(speaker, what):
    """The file of a phrase, or of its own name."""
    path = _FOLDER / speaker / f"{_FILES.get(what, what)}.g722"
    if not path.exists():
        raise FileNotFoundError(f"{path}: script/setup bench installs it")
    return path


def read(speaker, what):
    """The samples of a phrase, or of a file by its name, and their rate."""
    with tempfile.NamedTemporaryFile(suffix=".wav") as decoded:
        subprocess.run(["ffmpeg", "-loglevel", "error", "-y", "-f", "g722", "-i", path_of(speaker, what), decoded.name],
                       check=True, stdin=subprocess.DEVNULL)
        return sounds.read(decoded.name)
