"""What a screen reader sees of the running program, and does in it."""

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib

PATIENCE_SECONDS = 20
# What may change the answer to a question that is being waited for.
NEWS = ("object:state-changed", "object:children-changed", "object:property-change", "object:text-changed", "window")


class Element:
    """One object of the tree; its children are asked for anew each time."""

    def __init__(self, accessible):
        self.accessible = accessible

    @property
    def name(self):
        return self.accessible.get_name()

    @property
    def role(self):
        return self.accessible.get_role_name()

    @property
    def text(self):
        return Atspi.Text.get_text(self.accessible, 0, -1)

    def has(self, state):
        return self.accessible.get_state_set().contains(state)

    @property
    def is_showing(self):
        return self.has(Atspi.StateType.SHOWING)

    @property
    def is_checked(self):
        return self.has(Atspi.StateType.CHECKED)

    def children(self):
        for index in range(self.accessible.get_child_count()):
            child = self.accessible.get_child_at_index(index)
            if child is not None:
                yield Element(child)

    def all(self):
        """Everything below that can be seen, as the eye goes."""
        for child in self.children():
            if child.is_showing:
                yield child
                yield from child.all()

    def find(self, role, name):
        for element in self.all():
            if element.role == role and element.name == name:
                return element
        return None

    def texts(self):
        return [element.name for element in self.all() if element.role == "label" and element.name]

    def press(self):
        Atspi.Action.do_action(self.accessible, 0)

    def focus(self):
        Atspi.Component.grab_focus(self.accessible)

    def write(self, text):
        Atspi.EditableText.set_text_contents(self.accessible, text)


class Desktop:
    """Waits for what happens, by listening to it."""

    def __init__(self):
        Atspi.init()
        self.listener = Atspi.EventListener.new(lambda event: None)
        for event in NEWS:
            self.listener.register(event)

    def wait_for(self, question, what):
        """The first answer of the question that is something; the question is asked again at each event."""
        loop = GLib.MainContext.default()
        over = []
        deadline = GLib.timeout_add_seconds(PATIENCE_SECONDS, lambda: over.append(True))
        while True:
            try:
                answer = question()
            except GLib.Error:  # what was looked at is gone
                answer = None
            if answer:
                GLib.source_remove(deadline) if not over else None
                return answer
            if over:
                raise TimeoutError(f"{what} did not come")
            loop.iteration(True)

    def program(self):
        for application in Element(Atspi.get_desktop(0)).children():
            if application.name == "brivandel":
                return application
        return None

    def window(self, name):
        """A window of the program, once it is open."""

        def question():
            program = self.program()
            for window in program.children() if program else ():
                if window.name == name and window.is_showing:
                    return window
            return None

        return self.wait_for(question, f"the window {name!r}")

    def find(self, window, role, name):
        return self.wait_for(lambda: window.find(role, name), f"the {role} {name!r}")
