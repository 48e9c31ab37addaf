"""What is installed beside the program says what the program says.

packaging_test.py PROGRAM SOURCE_FOLDER BUILT_FOLDER: the last holds the manual page and the metainfo as made.
"""

import os
import re
import subprocess
import sys
import tempfile
import unittest

PROGRAM, SOURCE, BUILT = (os.path.abspath(path) for path in sys.argv[1:4])
PACKAGING = os.path.join(SOURCE, "packaging/linux")
COMPLETION = os.path.join(PACKAGING, "completion")
MANUAL = os.path.join(BUILT, "brivandel.1")
HELP = {"-h", "--help"}


def output(*command, **options):
    """What a command prints; a mistake of it, or anything on its standard error, is one of the test."""
    done = subprocess.run(command, capture_output=True, text=True, timeout=60, check=False, **options)
    if done.returncode != 0 or done.stderr:
        raise AssertionError(f"{command[0]} ended with {done.returncode}:\n{done.stdout}{done.stderr}")
    return done.stdout


def options_in_help(*subcommand):
    options = set()
    for line in output(PROGRAM, *subcommand, "--help").splitlines():
        if line.startswith("  -"):
            options.update(line.split()[0].split(","))
    return options


def subcommands_in_help():
    text = output(PROGRAM, "--help")
    listed = text[text.index("Subcommands:\n") + len("Subcommands:\n"):].split("\n\n")[0]
    return [line.split()[0] for line in listed.splitlines() if re.match(r"  \w", line)]


def manual_sections():
    """The source of each section and subsection of the manual, by its heading."""
    sections = {}
    with open(MANUAL, encoding="utf-8") as manual:
        for line in manual:
            if heading := re.match(r"\.S[HS] (.+)", line):
                section = sections.setdefault(heading[1], [])
            elif sections:
                section.append(line.replace("\\-", "-"))
    return {heading: "".join(lines) for heading, lines in sections.items()}


def options_in_manual(section):
    """The options that paragraphs begin with."""
    heads = re.findall(r"^\.TP\n\.\w+ (.+)$", section, re.MULTILINE)
    return {option for head in heads for option in re.findall(r"(?<![\w-])--?\w[\w-]*", head)}


def manual_of(subcommand):
    found = [text for heading, text in manual_sections().items() if heading.split()[:2] == ["brivandel", subcommand]]
    if len(found) != 1:
        raise AssertionError(f"the manual has {len(found)} subsections about {subcommand}")
    return found[0]


class Manual(unittest.TestCase):
    def test_subcommands_are_those_of_the_program(self):
        described = [heading.split()[1] for heading in manual_sections() if heading.startswith("brivandel ")]
        self.assertGreater(len(described), 5)
        self.assertEqual(sorted(described), sorted(subcommands_in_help()))

    def test_options_are_those_of_the_program(self):
        for subcommand in subcommands_in_help():
            with self.subTest(subcommand):
                self.assertEqual(options_in_manual(manual_of(subcommand)) | HELP, options_in_help(subcommand))
        sections = manual_sections()
        general = options_in_manual(sections["IN THE STATUS AREA"]) | options_in_manual(sections["OPTIONS"])
        self.assertEqual(general, options_in_help())

    def test_arguments_are_those_of_the_program(self):
        for heading in filter(lambda heading: heading.startswith("brivandel "), manual_sections()):
            subcommand, *arguments = heading.split()[1:]
            usage = output(PROGRAM, subcommand, "--help").split("Usage: ")[1].splitlines()[0]
            stated = re.sub(r"\[OPTIONS\]", "", usage).split()[2:]
            with self.subTest(subcommand):
                self.assertEqual(bool(arguments), bool(stated), usage)
                self.assertEqual("..." in heading, "..." in usage, usage)

    def test_environment_is_that_of_the_program(self):
        read = set()
        for folder, _, files in os.walk(os.path.join(SOURCE, "src")):
            for name in files:
                with open(os.path.join(folder, name), encoding="utf-8") as file:
                    read.update(re.findall(r'"(BRIVANDEL_[A-Z_]+|XDG_[A-Z_]+|DISPLAY)"', file.read()))
        self.assertIn("BRIVANDEL_TARGET", read)
        described = manual_sections()["ENVIRONMENT"]
        self.assertEqual([variable for variable in sorted(read) if variable not in described], [])

    def test_sets_without_a_warning(self):
        environment = dict(os.environ, LC_ALL="C.UTF-8", MANROFFSEQ="", MANWIDTH="80")
        self.assertIn("control a music workstation", output("man", "--warnings", "-E", "UTF-8", "-l", MANUAL,
                                                            env=environment))


class Completion(unittest.TestCase):
    """The words that shells offer, compared with the help of the program."""

    def setUp(self):
        self.home = tempfile.TemporaryDirectory()
        self.environment = {"PATH": os.environ["PATH"], "HOME": self.home.name, "LC_ALL": "C.UTF-8"}

    def tearDown(self):
        self.home.cleanup()

    def bash(self, *words):
        script = (f'source "{COMPLETION}/brivandel.bash"; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _brivandel; '
                  'printf "%s\\n" "${COMPREPLY[@]}"')
        return set(output("bash", "--norc", "-c", script, "bash", *words, env=self.environment,
                          cwd=self.home.name).split())

    def fish(self, *words):
        script = f'source "{COMPLETION}/brivandel.fish"; complete --do-complete "{" ".join(words)}"'
        offered = output("fish", "--no-config", "-c", script, env=self.environment, cwd=self.home.name)
        return {line.split("\t")[0] for line in offered.splitlines()}

    def zsh(self, helper, *words):
        """zsh completes at a terminal only: what the function hands to a helper of zsh's own is looked at."""
        script = f'{helper}; words=("$@"); CURRENT=$#; source "{COMPLETION}/brivandel.zsh"'
        return output("zsh", "-f", "-c", script, "zsh", *words, env=self.environment).splitlines()

    def zsh_options(self, *words):
        accepted = self.zsh('_arguments() { print -rl -- "$@" }', *words)
        return {found[1] for line in accepted if (found := re.match(r"(?:\([^)]*\))?(--?[\w-]+)", line))}

    def zsh_subcommands(self):
        described = self.zsh('_arguments() { _brivandel_subcommands }; _describe() { print -rl -- ${(P)2} }',
                             "brivandel", "")
        return {line.split(":")[0] for line in described}

    def test_bash_offers_what_the_program_takes(self):
        subcommands = subcommands_in_help()
        self.assertEqual(self.bash("brivandel", ""), set(subcommands))
        self.assertEqual(self.bash("brivandel", "-"), options_in_help())
        for subcommand in subcommands:
            with self.subTest(subcommand):
                self.assertEqual(self.bash("brivandel", subcommand, "-"), options_in_help(subcommand))

    def test_bash_offers_values_and_files(self):
        with open(os.path.join(self.home.name, "take.wav"), "wb"):
            pass
        self.assertEqual(self.bash("brivandel", "--appearance", "d"), {"dark"})
        self.assertEqual(self.bash("brivandel", "autostart", ""), {"on", "off"})
        self.assertEqual(self.bash("brivandel", "listen", "t"), {"take.wav"})
        self.assertEqual(self.bash("brivandel", "replay", "--settings", "t"), {"take.wav"})
        self.assertEqual(self.bash("brivandel", "listen", "--target", "t"), set())
        self.assertEqual(self.bash("brivandel", "replay", "--only", "lo"), {"log"})

    def test_fish_offers_what_the_program_takes(self):
        subcommands = subcommands_in_help()
        self.assertEqual(self.fish("brivandel", ""), set(subcommands))
        self.assertEqual(self.fish("brivandel", "-") | HELP, options_in_help())
        for subcommand in subcommands:
            with self.subTest(subcommand):
                self.assertEqual(self.fish("brivandel", subcommand, "-") | HELP, options_in_help(subcommand))

    def test_zsh_offers_what_the_program_takes(self):
        subcommands = subcommands_in_help()
        self.assertEqual(self.zsh_options("brivandel", ""), options_in_help())
        self.assertEqual(self.zsh_subcommands(), set(subcommands))
        for subcommand in subcommands:
            with self.subTest(subcommand):
                self.assertEqual(self.zsh_options("brivandel", subcommand, ""), options_in_help(subcommand))


class Entries(unittest.TestCase):
    def test_desktop_entry_is_valid(self):
        self.assertEqual(output("desktop-file-validate", os.path.join(PACKAGING, "brivandel.desktop")), "")

    def test_desktop_entry_asks_for_what_the_program_takes(self):
        with open(os.path.join(PACKAGING, "brivandel.desktop"), encoding="utf-8") as entry:
            asked = re.findall(r"^Exec=brivandel (.+)$", entry.read(), re.MULTILINE)
        self.assertTrue(asked)
        self.assertLessEqual(set(asked), options_in_help())

    def test_metainfo_is_valid(self):
        output("appstreamcli", "validate", "--no-net", "--no-color",
               os.path.join(BUILT, "org.brivandel.Brivandel.metainfo.xml"))

    def test_newest_release_is_the_program(self):
        with open(os.path.join(BUILT, "org.brivandel.Brivandel.metainfo.xml"), encoding="utf-8") as metainfo:
            newest = re.search(r'<release version="([^"]+)"', metainfo.read())[1]
        self.assertEqual(output(PROGRAM, "--version"), f"brivandel {newest}\n")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
