"""No key of a command goes to a window that it is not meant for."""

import desktop

_SNAPSHOT_DIALOG = "Take Snapshot"
_OTHER = "Letters"


def problems(program, ardour, open_window):
    """What went wrong, each as a sentence. Ardour has ended afterwards."""
    found = []
    for check in (_another_program_in_front, _dialog, _second_workstation, _closing_in_a_bar):
        what = check(program, ardour, open_window)
        title = check.__name__.strip("_").replace("_", " ")
        print(f"{'FAILED' if what else 'ok':6}  {title:18}  {'guard':10}  {what or 'nothing else got a key'}", flush=True)
        if what:
            found.append(f"{title}: {what}")
    return found


def _another_program_in_front(program, ardour, open_window):
    ardour.remote.stop()
    with open_window(_OTHER) as other:
        error = program.carry_out("hey logic play")
        if error or not ardour.remote.wait_until(ardour.remote.rolls):
            return f"Ardour was not brought to the front: {error}"
        ardour.remote.stop()
        return _got_keys(other)


def _dialog(program, ardour, _):
    ardour.remote.stop()
    program.carry_out("hey logic save as")
    if not desktop.wait_for_window(_SNAPSHOT_DIALOG):
        return "the dialog did not open"
    error = program.carry_out("hey logic play")
    desktop.press("Escape")
    if _SNAPSHOT_DIALOG not in error:
        return f"the dialog is not named: {error or 'no error'}"
    ardour.remote.listen(1)
    return "Ardour rolls" if ardour.remote.rolls() else ""


def _second_workstation(program, ardour, open_window):
    """A window that bears the name of one that has a profile."""
    with open_window("Qtractor") as other:
        error = program.carry_out("hey logic play")
        if "Ardour" not in error or "Qtractor" not in error:
            return f"the error does not name both: {error or 'no error'}"
        ardour.remote.listen(1)
        return "Ardour rolls" if ardour.remote.rolls() else _got_keys(other)


def _closing_in_a_bar(program, ardour, open_window):
    """It ends as soon as it has come to the front, which is before the first of the bar's keys."""
    script = program.script_for("hey logic play from bar twenty five")
    with open_window(_OTHER) as other, desktop.ActiveWindows() as active:
        with program.start_script(script) as running:
            active.next()
            ardour.process.kill()
            ardour.process.wait()
            error = program.outcome(running)
        if not any(reason in error for reason in ("Can’t get process \"Ardour\"", "instead of \"Ardour\"")):
            return f"the error does not say that Ardour is gone: {error or 'no error'}"
        return _got_keys(other)


def _got_keys(window):
    keys = window.keys()
    return f"another window got {len(keys)} keys" if keys else ""
