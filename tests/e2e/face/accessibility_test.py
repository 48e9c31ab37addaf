"""What assistive technology sees of each window, compared with what the windows say, and that it can use them.

accessibility_test.py PROGRAM: needs a display with a session bus of its own.
"""

import os
import subprocess
import sys
import tempfile
import unittest

from assistive import Atspi, Desktop

PROGRAM = None
WELCOME = "Welcome to Brivandel"
SETTINGS = "Brivandel Settings"
REFERENCE = "Voice Commands Reference"
POPOVER = "Brivandel"
# Roles that stand for nothing but themselves.
STRUCTURE = {"filler", "layered pane", "scroll pane", "split pane", "panel", "viewport"}
NAMELESS_BY_NATURE = STRUCTURE | {"scroll bar", "separator", "list", "image", "unknown"}


class Accessibility(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        # The bus of assistive technology must be there before the program is.
        cls.bus = subprocess.Popen(["/usr/libexec/at-spi-bus-launcher", "--launch-immediately"], stderr=subprocess.DEVNULL)
        cls.desktop = Desktop()

    @classmethod
    def tearDownClass(cls):
        cls.bus.terminate()
        cls.bus.wait()

    def setUp(self):
        self.home = tempfile.TemporaryDirectory()
        self.environment = dict(os.environ, HOME=self.home.name, XDG_CONFIG_HOME=self.home.name + "/config",
                                XDG_STATE_HOME=self.home.name + "/state", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        self.environment.pop("NO_AT_BRIDGE", None)
        self.program = subprocess.Popen([PROGRAM], env=self.environment)
        self.welcome = self.desktop.window(WELCOME)

    def tearDown(self):
        self.ask("--quit")
        self.assertEqual(self.program.wait(20), 0)
        self.home.cleanup()

    def ask(self, request):
        subprocess.run([PROGRAM, request], env=self.environment, check=True, timeout=20)

    def wait(self, question, what):
        return self.desktop.wait_for(question, what)

    def press(self, window, name, role="push button"):
        self.desktop.find(window, role, name).press()

    def assert_controls_have_names(self, window):
        for element in window.all():
            if element.role not in NAMELESS_BY_NATURE:
                self.assertTrue(element.name, f"a {element.role} of {window.name!r} has no name")

    def test_walkthrough_says_its_texts_page_by_page(self):
        self.assertEqual(self.welcome.texts(), [
            "Hands-free control for Logic Pro",
            "Find it in the menu bar", "Look for the BV icon at the top of your screen.",
            "Enable voice control", 'Click the BV icon and select "Enable Voice Control".',
            'Say "Hey Logic" + a command', '"Hey Logic play", "Hey Logic record", "Hey Logic stop"'])
        self.assertIsNotNone(self.welcome.find("image", "Page 1 of 3"))
        self.assertIsNone(self.welcome.find("push button", "Back"))
        self.assert_controls_have_names(self.welcome)
        self.press(self.welcome, "Next")
        self.wait(lambda: "Grant Permissions" in self.welcome.texts(), "the second page")
        self.assertEqual(self.welcome.texts(), [
            "Grant Permissions", "Brivandel needs three permissions to work.",
            "1", "Accessibility Access", "Required to send keyboard shortcuts to Logic Pro.",
            "System Settings → Privacy & Security → Accessibility",
            "Click +, navigate to Applications, select Brivandel, and click Open.",
            "2", "Microphone & Speech Recognition", 'macOS will prompt you automatically. Click "OK" to allow.',
            "3", "Open Logic Pro", "Logic Pro must be running for commands to work."])
        self.press(self.welcome, "Next")
        self.wait(lambda: "You're All Set!" in self.welcome.texts(), "the last page")
        self.assertEqual(self.welcome.texts(), [
            "You're All Set!", "Brivandel is running in your menu bar.",
            "View all commands", "Open Command Reference from the menu bar to see every available voice command.",
            "Customize in Settings", "Change the wake word, audio device, feedback sounds, and idle timeout.",
            "100% private", "All speech recognition happens on-device. No audio ever leaves your Mac."])
        self.press(self.welcome, "Get Started")
        self.wait(lambda: not self.welcome.is_showing, "the end of the walkthrough")

    def test_popover_says_the_status_and_switches(self):
        self.ask("--popover")
        popover = self.desktop.window(POPOVER)
        self.assertEqual(popover.role, "dialog")
        self.assertEqual(popover.texts()[:2], ["Brivandel", "Inactive"])
        self.assertIn("Trigger Word", popover.texts())
        self.assertIn('Say "Hey Logic" before each command', popover.texts())
        self.assertIsNotNone(popover.find("image", "Not listening"))
        self.assert_controls_have_names(popover)
        switch = popover.find("check box", "Trigger Word")
        self.assertTrue(switch.is_checked)
        switch.press()
        self.wait(lambda: "Speak commands directly" in popover.texts(), "the other hint")
        self.assertFalse(switch.is_checked)
        self.press(popover, "Start Listening")
        self.wait(lambda: popover.find("push button", "Stop Listening"), "the button's other side")
        self.wait(lambda: "Active" in popover.texts(), "the other state")
        self.assertIsNotNone(popover.find("image", "Listening"))

    def test_reference_lists_its_commands(self):
        self.ask("--commands")
        reference = self.desktop.window(REFERENCE)
        self.assert_controls_have_names(reference)
        self.assertIsNotNone(reference.find("list item", "Transport, 7 commands"))
        self.assertIsNotNone(reference.find("list item", "play, Start playback from current position"))
        search = reference.find("text", "Search commands")
        search.write("zzz")
        self.wait(lambda: reference.find("list item", "No commands match your search."), "the empty result")
        reference.find("text", "Try a phrase").write("hey logic stop")
        self.wait(lambda: 'stop (Stop playback/recording), by "stop"' in reference.texts(), "what it would do")
        search.write("pause")
        self.wait(lambda: reference.find("list item", "pause, Pause playback"), "the found command")
        self.press(reference, "Edit trigger phrases")
        settings = self.desktop.window(SETTINGS)
        self.wait(lambda: settings.find("text", "New trigger phrase"), "the field for a phrase")

    def test_settings_say_their_texts_tab_by_tab(self):
        self.ask("--settings")
        settings = self.desktop.window(SETTINGS)
        self.assert_controls_have_names(settings)
        self.assertEqual(settings.texts(), [
            "Wake Word", "Say 'hey logic' to activate voice commands", "Feedback", "Idle Timeout", "Timeout after",
            "Get a reminder or auto-stop after a period of inactivity"])
        for name in ("Use wake word", "Audio feedback", "Remind me when idle", "Auto-disable when idle"):
            self.assertTrue(settings.find("check box", name).is_checked, name)
        for tab, text in (("Commands", None), ("Audio", "Select audio input device for voice commands"),
                          ("About", "Hands-free recording for solo musicians")):
            self.press(settings, tab, "page tab")
            if text:
                self.wait(lambda: text in settings.texts(), f"the tab {tab}")
            else:
                self.wait(lambda: settings.find("radio button", "Built-in"), f"the tab {tab}")
            self.assert_controls_have_names(settings)
        self.assertIn("Version 1.4", settings.texts())


if __name__ == "__main__":
    PROGRAM = os.path.abspath(sys.argv.pop())
    unittest.main(verbosity=2)
