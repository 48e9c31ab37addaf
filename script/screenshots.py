"""Takes the pictures of the windows, for script/screenshots: in the display that it makes.

screenshots.py light|dark SCALE
"""

import json
import os
import plistlib
import subprocess
import sys
import tempfile
import uuid

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
sys.path.insert(0, os.path.join(ROOT, "tests/e2e/face"))
from assistive import Desktop  # noqa: E402

PROGRAM = os.path.join(ROOT, "build/release/bin/brivandel")
LOGIC_PRO = os.path.join(ROOT, "build/release/bin/Logic Pro")
PICTURES = os.path.join(ROOT, "docs/screenshots")
SCRIPT = """tell application "System Events"
    tell process "Logic Pro"
        set frontmost to true
        key code {}
    end tell
end tell"""


def custom_command(name, triggers, key_code, modifiers, label, is_enabled=True):
    using = f" using {{{', '.join(modifiers)}}}" if modifiers else ""
    flags = {"command down": 0x100000, "shift down": 0x20000, "option down": 0x80000, "control down": 0x40000}
    return {"id": str(uuid.uuid5(uuid.NAMESPACE_DNS, name)).upper(), "name": name, "triggers": triggers,
            "capturedKey": {"keyCode": key_code, "modifierFlags": sum(flags[modifier] for modifier in modifiers),
                            "displayString": label, "appleScript": SCRIPT.format(f"{key_code}{using}")},
            "isEnabled": is_enabled}


CUSTOM_COMMANDS = [
    custom_command("Toggle Mixer", ["open mixer", "close mixer", "show me the faders"], 7, [], "X"),
    custom_command("New Take Folder", ["new take folder"], 3, ["command down", "option down"], "⌥⌘F"),
    custom_command("Bounce in Place", ["bounce it", "bounce in place"], 11, ["control down"], "⌃B", False),
]


class Session:
    """The program with settings of its own, and pictures of its windows."""

    def __init__(self, desktop, appearance, scale, custom_commands=(), settings=()):
        self.desktop, self.appearance, self.scale = desktop, appearance, scale
        self.home = tempfile.TemporaryDirectory()
        self.environment = dict(os.environ, HOME=self.home.name, XDG_CONFIG_HOME=self.home.name + "/config",
                                XDG_STATE_HOME=self.home.name + "/state",
                                QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_SCALE_FACTOR=str(scale))
        self.environment.pop("NO_AT_BRIDGE", None)
        folder = self.home.name + "/config/brivandel"
        os.makedirs(folder)
        stored = dict(settings)
        if custom_commands:
            stored["customCommands"] = json.dumps(list(custom_commands)).encode()
        with open(folder + "/defaults.plist", "wb") as file:
            plistlib.dump(stored, file, fmt=plistlib.FMT_BINARY)
        self.program = subprocess.Popen([PROGRAM, "--appearance", appearance], env=self.environment)
        self.welcome = desktop.window("Welcome to Brivandel")

    def __enter__(self):
        return self

    def __exit__(self, *error):
        self.ask("--quit")
        self.program.wait(20)
        self.home.cleanup()

    def ask(self, request):
        subprocess.run([PROGRAM, request], env=self.environment, check=True, timeout=20)

    def window(self, request, title):
        self.ask(request)
        return self.desktop.window(title)

    def press(self, window, name, role="push button"):
        self.desktop.find(window, role, name).press()

    def wait(self, question, what):
        return self.desktop.wait_for(question, what)

    def take(self, window, picture):
        if not picture.startswith(os.environ["SCREENSHOTS_STEM"]):
            return
        name = f"{picture}-{self.appearance}{'@2x' if self.scale == 2 else ''}.png"
        subprocess.run(["xdotool", "mousemove", "5", "1290"], check=True)
        # A window says that it is there before it is painted: the picture counts once it has not changed.
        before = None
        for _ in range(40):
            windows = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", f"^{window.name}$"],
                                     capture_output=True, text=True).stdout.split()
            picture = subprocess.run(["import", "-window", windows[-1], "ppm:-"], check=True,
                                     capture_output=True).stdout if windows else None
            if picture and picture == before and len(set(picture[100::7])) > 8:
                subprocess.run(["convert", "ppm:-", "-strip", "-colors", "256", "png8:" + os.path.join(PICTURES, name)],
                               input=picture, check=True)
                return
            before = picture
        raise TimeoutError(f"{name} did not come to rest")


def walkthrough(start):
    with start() as session:
        for page in (1, 2, 3):
            session.take(session.welcome, f"welcome-{page}")
            if page < 3:
                session.press(session.welcome, "Next")
                session.wait(lambda: session.welcome.find("image", f"Page {page + 1} of 3"), "the next page")


def say(text):
    with tempfile.NamedTemporaryFile(suffix=".wav") as sound:
        subprocess.run(["flite", "-voice", "slt", "-t", text, "-o", sound.name], check=True)
        subprocess.run(["paplay", "-d", "feed", sound.name], check=True)


def popover(start):
    with subprocess.Popen([LOGIC_PRO], stdin=subprocess.PIPE, stdout=subprocess.PIPE) as logic_pro, start() as session:
        logic_pro.stdout.readline()  # it is ready
        panel = session.window("--popover", "Brivandel")
        session.take(panel, "popover-idle")
        session.press(panel, "Start Listening")
        session.wait(lambda: panel.find("image", "Listening"), "listening")
        session.take(panel, "popover-listening")
        say("hey logic")
        session.wait(lambda: panel.find("image", "Listening for a command"), "the wake phrase")
        session.take(panel, "popover-awake")
        say("hey logic play that back")
        session.wait(lambda: "✓ play that back" in panel.texts(), "the command")
        session.take(panel, "popover-command")
        session.press(panel, "Trigger Word", "check box")
        session.wait(lambda: "Speak commands directly" in panel.texts(), "the other hint")
        session.take(panel, "popover-without-wake-word")
        logic_pro.terminate()


def settings(start):
    with start() as session:
        window = session.window("--settings", "Brivandel Settings")
        session.take(window, "settings-general")
        session.press(window, "Use wake word", "check box")
        session.wait(lambda: window.find("text", "Wake word") is None, "the field to go")
        session.take(window, "settings-general-without-wake-word")
        session.press(window, "Commands", "page tab")
        session.wait(lambda: window.find("radio button", "Built-in"), "the commands")
        session.take(window, "settings-commands")
        session.press(window, "Edit trigger phrases")
        field = session.wait(lambda: window.find("text", "New trigger phrase"), "the field for a phrase")
        field.write("go to")
        session.wait(lambda: any("waits a moment" in text for text in window.texts()), "the advice")
        session.take(window, "settings-commands-advice")
        field.write("roll it")
        session.press(window, "Add")
        session.wait(lambda: window.find("push button", "Reset"), "the override")
        session.take(window, "settings-commands-changed")
        session.press(window, "Custom", "radio button")
        session.wait(lambda: "No custom commands yet" in window.texts(), "the empty list")
        session.take(window, "settings-custom-empty")
        session.press(window, "Audio", "page tab")
        session.wait(lambda: "Microphone Input" in window.texts(), "the inputs")
        session.take(window, "settings-audio")
        session.press(window, "About", "page tab")
        session.wait(lambda: "Version 1.4" in window.texts(), "the version")
        session.take(window, "settings-about")


def custom_commands(start):
    with start(CUSTOM_COMMANDS) as session:
        window = session.window("--settings", "Brivandel Settings")
        session.press(window, "Commands", "page tab")
        session.press(window, "Custom", "radio button")
        session.wait(lambda: window.find("list item", "Toggle Mixer, X"), "the list")
        session.take(window, "settings-custom")
        session.press(window, "Add Command")
        editor = session.desktop.window("New Custom Command")
        session.take(editor, "editor-new")
        editor.find("text", "New trigger phrase").write("quantize the display")
        session.wait(lambda: any("always heard as" in text for text in editor.texts()), "the advice")
        session.take(editor, "editor-advice-serious")
        editor.find("text", "New trigger phrase").write("quantize")
        session.wait(lambda: any("in no dictionary" in text for text in editor.texts()), "the pronunciation")
        session.take(editor, "editor-advice")
        editor.find("text", "New trigger phrase").write("")
        session.press(editor, "Save")
        session.take(session.desktop.window("No trigger phrase"), "editor-without-phrase")
        session.press(session.desktop.window("No trigger phrase"), "OK")
        session.press(editor, "Cancel")
        session.press(window, "Edit Toggle Mixer")
        editor = session.desktop.window("Edit Command")
        session.take(editor, "editor-edit")
        session.press(editor, "X")
        session.wait(lambda: editor.find("push button", "Press a key..."), "the capture")
        session.take(editor, "editor-capturing")
        session.press(editor, "Press a key...")
        session.press(editor, "Cancel")


def reference(start):
    with start(CUSTOM_COMMANDS) as session:
        window = session.window("--commands", "Voice Commands Reference")
        key = "Up"  # from Transport, where the sidebar begins
        for name, title in (("all", "All Commands"), ("transport", "Transport"), ("recording", "Recording"),
                            ("editing", "Editing"), ("looping", "Looping"), ("metronome", "Metronome"),
                            ("navigation", "Navigation"), ("custom", "Custom Commands")):
            subprocess.run(["xdotool", "key", key], check=True)
            key = "Down"
            session.wait(lambda: title in window.texts(), title)
            session.take(window, f"reference-{name}")
        session.press(window, "Show AppleScript", "check box")
        session.wait(lambda: any("tell process" in text for text in window.texts()), "the script")
        session.take(window, "reference-script")
        window.find("text", "Search commands").write("zzz")
        session.wait(lambda: window.find("list item", "No commands match your search."), "the empty result")
        session.take(window, "reference-nothing-found")


def trial(start):
    with start(CUSTOM_COMMANDS) as session:
        window = session.window("--commands", "Voice Commands Reference")
        phrase = window.find("text", "Try a phrase")
        for name, text, shown in (("not-woken", "play that back", "Not woken"),
                                  ("hidden", "hey logic stop and open mixer", "stop ("),
                                  ("bar", "hey logic play from bar twenty five", "Play from bar 25")):
            phrase.write(text)
            session.wait(lambda: any(text.startswith(shown) for text in window.texts()), shown)
            session.take(window, f"reference-trial-{name}")
        window.find("push button", "Hold to speak").focus()
        subprocess.run(["xdotool", "keydown", "space"], check=True)
        session.wait(lambda: "Listening..." in window.texts(), "listening")
        session.take(window, "reference-trial-listening")
        say("hey logic play that back")
        session.wait(lambda: any(text.startswith("play that back (") for text in window.texts()), "the command")
        session.take(window, "reference-trial-spoken")
        subprocess.run(["xdotool", "keyup", "space"], check=True)


def main():
    appearance, scale = sys.argv[1], int(sys.argv[2])
    os.makedirs(PICTURES, exist_ok=True)
    subprocess.run(["xsetroot", "-solid", "#8a93a3" if appearance == "light" else "#31353d"], check=True)
    bus = subprocess.Popen(["/usr/libexec/at-spi-bus-launcher", "--launch-immediately"], stderr=subprocess.DEVNULL)
    try:
        desktop = Desktop()
        for pictures in (walkthrough, popover, settings, custom_commands, reference, trial):
            pictures(lambda commands=(): Session(desktop, appearance, scale, commands))
    finally:
        bus.terminate()
        bus.wait()


if __name__ == "__main__":
    main()
