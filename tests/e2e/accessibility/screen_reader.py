# SPDX-License-Identifier: GPL-3.0-or-later
"""An application as assistive technology sees it. To be imported on the desktop that it runs on."""

import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PATIENCE = 60


class ScreenReader:
    """Looks at one process, and listens to what it announces."""

    def __init__(self, process_id):
        self.announcements = []
        Atspi.init()
        self._listener = Atspi.EventListener.new(self._hear)
        self._focused = None
        self._listener.register("object:state-changed:showing")
        self._listener.register("object:state-changed:focused")
        self._application = wait_for("the application", lambda: _application_of(process_id))

    def find(self, name, *roles):
        """The one thing of that name to be seen, of one of the roles if any are given."""
        return wait_for(f'one "{name}"', lambda: self._the_one(name, roles))

    def shows(self, name):
        return any(_name_of(thing) == name for thing in self.things())

    def press(self, name):
        """Presses a button once it can be pressed."""
        button = self.find(name, Atspi.Role.PUSH_BUTTON)
        wait_for(f'"{name}" to be enabled', lambda: _has(button, Atspi.StateType.ENABLED))
        actions = button.get_action_iface()
        names = [actions.get_action_name(index) for index in range(actions.get_n_actions())]
        if not actions.do_action(names.index("Press")):
            raise AssertionError(f'"{name}" couldn\'t be pressed')

    def write(self, name, text):
        """Fills in a text box, without keys."""
        box = self.find(name, Atspi.Role.TEXT)
        if not box.get_editable_text_iface().set_text_contents(text):
            raise AssertionError(f'"{name}" couldn\'t be filled in')
        self.wait_for_text(name, text)

    def text_in(self, name):
        text = self.find(name, Atspi.Role.TEXT).get_text_iface()
        return text.get_text(0, text.get_character_count())

    def wait_for_text(self, name, text):
        wait_for(f'"{name}" to hold "{text}"', lambda: self.text_in(name) == text)

    def strike(self, key):
        """Strikes a key, given by its X number."""
        Atspi.generate_keyboard_event(key, None, Atspi.KeySynthType.SYM)

    def wait_for_focus(self, name, *roles):
        """Waits until the focus has last gone to something of that name and role."""
        wait_for(f'"{name}" to have the focus', lambda: self._focused and self._focused[0] == name
                 and self._focused[1] in roles)

    def things(self):
        """All that is to be seen."""
        return [thing for thing, _ in self._walk(self._application, 0)]

    def tree(self):
        """All that is to be seen, a line each, indented by its place."""
        return "\n".join(f'{"  " * depth}{thing.get_role_name()} "{_name_of(thing)}"'
                         for thing, depth in self._walk(self._application, 0))

    def focusable(self):
        """The roles and names of all that takes the keyboard."""
        return [(thing.get_role_name(), _name_of(thing)) for thing in self.things()
                if _has(thing, Atspi.StateType.FOCUSABLE)]

    def _the_one(self, name, roles):
        found = [thing for thing in self.things()
                 if _name_of(thing) == name and (not roles or thing.get_role() in roles)]
        return found[0] if len(found) == 1 else None

    def _walk(self, thing, depth):
        for index in range(thing.get_child_count()):
            child = thing.get_child_at_index(index)
            if child and _has(child, Atspi.StateType.SHOWING):
                yield child, depth
                yield from self._walk(child, depth + 1)

    def _hear(self, event):
        if not event.detail1:
            return
        try:
            role, name = event.source.get_role(), _name_of(event.source)
        except GLib.Error:
            # It has gone again.
            return
        if event.type.endswith("focused"):
            self._focused = (name, role)
        elif role == Atspi.Role.NOTIFICATION:
            self.announcements.append(name)


def wait_for(what, look):
    """Looks until there is something to be seen, and returns it."""
    end = time.monotonic() + PATIENCE
    while True:
        while GLib.MainContext.default().iteration(False):
            pass
        try:
            seen = look()
        except GLib.Error:
            # What was being looked at has just gone.
            seen = None
        if seen:
            return seen
        if time.monotonic() > end:
            raise AssertionError(f"waited in vain for {what}")
        time.sleep(0.02)


def _application_of(process_id):
    desktop = Atspi.get_desktop(0)
    for index in range(desktop.get_child_count()):
        application = desktop.get_child_at_index(index)
        if application and application.get_process_id() == process_id:
            # What is remembered of it would be out of date at every look.
            application.set_cache_mask(Atspi.Cache.NONE)
            application.clear_cache()
            return application
    return None


def _name_of(thing):
    return thing.get_name() or ""


def _has(thing, state):
    return thing.get_state_set().contains(state)
