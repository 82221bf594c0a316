"""Prints what a screen reader finds of the running programs: a line of JSON for each element."""

import json

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402


def walk(element, window):
    role = element.get_role_name()
    if role == "frame":
        window = element.get_name()
    states = element.get_state_set()
    print(json.dumps({
        "window": window,
        "role": role,
        "name": element.get_name(),
        "description": element.get_description(),
        "showing": states.contains(Atspi.StateType.SHOWING),
        "focusable": states.contains(Atspi.StateType.FOCUSABLE),
    }))
    for number in range(element.get_child_count()):
        child = element.get_child_at_index(number)
        if child is not None:
            walk(child, window)


desktop = Atspi.get_desktop(0)
for place in range(desktop.get_child_count()):
    walk(desktop.get_child_at_index(place), "")
