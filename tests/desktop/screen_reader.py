#!/usr/bin/python3
"""Reads a program's windows on the accessibility bus, as a screen reader does, and writes down what it finds.

screen_reader.py PID FILE: the tree of the windows that are shown goes into FILE, a line for each object: its role, name and
actions. Every control that takes the focus must have a name and a role, and every drop-down list a label or a description; those
without are named on the standard error, and the status is 1.

screen_reader.py --listen FILE: what any program announces goes into FILE, until the reader is ended.

scripts/desktop-check runs both.
"""
import sys
import time
import warnings

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

# The names of actions have no other call in this version of the library.
warnings.simplefilter("ignore", DeprecationWarning)
ROLELESS = (Atspi.Role.INVALID, Atspi.Role.UNKNOWN, Atspi.Role.FILLER)
# Their cells are data.
WHOLE = (Atspi.Role.TABLE, Atspi.Role.TREE_TABLE, Atspi.Role.LIST, Atspi.Role.TREE)
PATIENCE = 10


def actions(node):
    one = node.get_action_iface()
    names = [one.get_action_name(i) for i in range(one.get_n_actions())] if one else []
    return f" [{', '.join(names)}]" if names else ""


def has_meaning(node):
    """A drop-down list is named by what it shows, so what it is for must come from elsewhere."""
    labels = (one.get_relation_type() for one in node.get_relation_set())
    return bool(node.get_description()) or Atspi.RelationType.LABELLED_BY in labels


def read(node, depth, lines, faults):
    states = node.get_state_set()
    if not states.contains(Atspi.StateType.SHOWING):
        return
    role, name = node.get_role(), node.get_name()
    lines.append(f"{'  ' * depth}{node.get_role_name()} \"{name}\"{actions(node)}")
    # The frame around the pages; its tabs are the control.
    frame = role == Atspi.Role.FILLER and name == "Pages"
    if states.contains(Atspi.StateType.FOCUSABLE) and not frame and (not name or role in ROLELESS):
        faults.append(lines[-1].strip())
    if role == Atspi.Role.COMBO_BOX and not has_meaning(node):
        faults.append(f"{lines[-1].strip()} (which has no label or description)")
    if role not in WHOLE:
        for i in range(node.get_child_count()):
            child = node.get_child_at_index(i)
            if child:
                read(child, depth + 1, lines, faults)


def program(pid):
    """The program on the bus; it may need a moment to come there."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        desktop = Atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(i)
            if child and child.get_process_id() == pid:
                return child
        time.sleep(0.05)
    sys.exit(f"screen_reader: process {pid} isn't on the accessibility bus")


def listen(path):
    """Writes down what is announced, until it is ended."""
    with open(path, "w", buffering=1, encoding="utf-8") as file:

        def shown(event):
            try:
                if event.detail1 and event.source.get_role() == Atspi.Role.NOTIFICATION:
                    print(event.source.get_name(), file=file)
            except GLib.Error:
                pass  # It is gone already.

        listener = Atspi.EventListener.new(shown)
        listener.register("object:state-changed:showing")
        Atspi.event_main()


def main():
    if sys.argv[1] == "--listen":
        listen(sys.argv[2])
    lines, faults = [], []
    found = program(int(sys.argv[1]))
    for i in range(found.get_child_count()):
        read(found.get_child_at_index(i), 0, lines, faults)
    with open(sys.argv[2], "w", encoding="utf-8") as file:
        file.write("\n".join(lines) + "\n")
    if not lines:
        faults.append("no window at all")
    for fault in faults:
        print(f"screen_reader: {sys.argv[2]}: no name or no role: {fault}", file=sys.stderr)
    sys.exit(1 if faults else 0)


main()
