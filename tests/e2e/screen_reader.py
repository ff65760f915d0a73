#!/usr/bin/python3
"""The room window as those have it who hear it: read, selected and walked through over the accessibility bus.

screen_reader.py BIN: the folder of the programs.
"""

import os
import sys

from desktop import Desktop, ends, wait_for

try:
    import gi

    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi, GLib
except (ImportError, ValueError) as missing:
    sys.exit(f"{sys.executable} lacks what the packages python3-gi and gir1.2-atspi-2.0 bring: {missing}")

Text = Atspi.Text
MESSAGE = "Robin: good evening Happy all"
NEXT = "Robin: good night"


class Reader:
    """An assistive program. It remembers nothing of the tree, and all text events."""

    def __init__(self, desktop):
        os.environ.update(desktop.environment)
        Atspi.init()
        Atspi.get_desktop(0).set_cache_mask(Atspi.Cache.NONE)
        self.heard = []
        self.listener = Atspi.EventListener.new(self.hear)
        for event in ["object:text-changed:insert", "object:text-caret-moved"]:
            self.listener.register(event)

    def hear(self, event):  # which lives no longer than this call
        self.heard.append((event.type, event.source, event.detail1, event.any_data))

    def find(self, name):
        return wait_for(f"{name!r} is in the tree", lambda: self.below(Atspi.get_desktop(0), name))

    def below(self, parent, name):
        try:
            children = [parent.get_child_at_index(at) for at in range(parent.get_child_count())]
            hits = (child if child.get_name() == name else self.below(child, name) for child in children if child)
            return next(filter(None, hits), None)
        except GLib.Error:  # the tree changes while it is looked through
            return None

    def hears(self, kind, source, offset, data):
        """An event that came since the last call."""

        def look():
            while GLib.MainContext.default().iteration(False):
                pass
            return (kind, source, offset, data) in self.heard

        wait_for(f"{kind} at {offset} with {data!r}", look)
        self.heard = []


def whole(board):
    return Text.get_text(board, 0, -1)


def the_window(reader):
    push, text = Atspi.Role.PUSH_BUTTON, Atspi.Role.TEXT
    roles = {"Message": text, "Members": Atspi.Role.TREE, "Send": push, "Menu": push, "Message board": text}
    for name, role in roles.items():
        assert reader.find(name).get_role() == role, name
    board = reader.find("Message board")
    states, interfaces = board.get_state_set(), board.get_interfaces()
    assert "Text" in interfaces and "EditableText" not in interfaces, interfaces
    assert states.contains(Atspi.StateType.READ_ONLY) and not states.contains(Atspi.StateType.EDITABLE)
    return board


def what_is_said(desktop, reader, board, window):
    wait_for("in the room", lambda: "You are allowed to join" in whole(board))
    for typed, message in [("good evening :) all", MESSAGE), ("good night", NEXT)]:
        offset = len(whole(board))
        desktop.type_into(window, typed)
        reader.hears("object:text-changed:insert", board, offset, "\n" + message)
        assert whole(board)[offset:] == "\n" + message, whole(board)
    start = whole(board).index(MESSAGE)
    # Qt 6.4 does not answer the call that has taken this one's place.
    for offset in [start, start + MESSAGE.index("ppy"), start + len(MESSAGE)]:
        line = Text.get_text_at_offset(board, offset, Atspi.TextBoundaryType.LINE_START)
        assert (line.content, line.start_offset) == (MESSAGE + "\n", start), (offset, line.content)
    return start


def where_it_is(board, start):
    screen = Atspi.CoordType.SCREEN
    outer = board.get_extents(screen)
    places = [Text.get_character_extents(board, start + at, screen) for at in range(len(MESSAGE))]
    for at, place in enumerate(places):
        where = (at, place.x, place.y, place.width, place.height)
        assert outer.x <= place.x < place.x + place.width <= outer.x + outer.width, where
        assert outer.y <= place.y < place.y + place.height <= outer.y + outer.height, where
    name = MESSAGE.index("Happy")
    for at in [0, name, name + len("Happy")]:
        x, y = places[at].x + places[at].width // 2, places[at].y + places[at].height // 2
        assert Text.get_offset_at_point(board, x, y, screen) == start + at, at
    assert places[name].x == places[name + 4].x < places[name + 5].x, "a name is where its picture is"


def selection_and_caret(desktop, reader, board, start):
    name = start + MESSAGE.index("Happy")
    assert Text.add_selection(board, start, name + len("Happy"))
    assert Text.get_n_selections(board) == 1
    selection = Text.get_selection(board, 0)
    assert (selection.start_offset, selection.end_offset) == (start, name + len("Happy")), selection.end_offset

    Text.set_caret_offset(board, name - 1)
    desktop.tool("xdotool", "key", "Tab", "Tab")
    wait_for("Tab leads to the board", lambda: board.get_state_set().contains(Atspi.StateType.FOCUSED))
    for behind in [name, name + len("Happy")]:
        desktop.tool("xdotool", "key", "Right")
        reader.hears("object:text-caret-moved", board, behind, 0)
        assert Text.get_caret_offset(board) == behind, Text.get_caret_offset(board)
    assert Text.get_n_selections(board) == 0


def main():
    with Desktop(sys.argv[1], accessible=True) as desktop:
        reader = Reader(desktop)
        program, window = desktop.client("-cid1", "-cnmLobby~")
        board = the_window(reader)
        start = what_is_said(desktop, reader, board, window)
        where_it_is(board, start)
        selection_and_caret(desktop, reader, board, start)
        Atspi.Action.do_action(reader.find("Exit"), 0)
        ends(program)
    print("the room was read, selected and walked through")


if __name__ == "__main__":
    main()
