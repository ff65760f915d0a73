#!/usr/bin/python3
"""An evening with every window, by the keyboard alone: two people, looked at over the accessibility bus. And first
one who finds no messenger.

whole_evening.py BIN: the folder of the programs.
"""

import re
import sys
import time
from pathlib import Path

from desktop import Desktop, ends, wait_for
from screen_reader import Atspi, GLib, Reader, whole
from skinned_window import Screen, geometry

# Entries of menus, counted over those that can be chosen. In a room of one's own it can be closed, not left.
OPTIONS, SAVE = 3, 4
IGNORE, DROP, PRIVATE_MESSAGE, HIGHLIGHT = 3, 4, 5, 6

FOCUSED = Atspi.StateType.FOCUSED
ENABLED = Atspi.StateType.ENABLED
SELECTED = Atspi.StateType.SELECTED

# The titles of windows.
OUTSIDE = "Pylox Chat"
CHAT_OPTIONS = "Chat Options"


class Person:
    """One client: what stands in its windows, and the keys that are pressed in them."""

    def __init__(self, desktop, reader, *arguments):
        self.desktop = desktop
        self.reader = reader
        self.room = OUTSIDE  # the title of the room window
        self.sent = 0
        self.process = desktop.start([desktop.programs / "PyloxChat", *arguments])

    def program(self):
        programs = Atspi.get_desktop(0)
        for at in range(programs.get_child_count()):
            try:
                if (program := programs.get_child_at_index(at)).get_process_id() == self.process.pid:
                    return program
            except (AttributeError, GLib.Error):  # one that is about to end
                continue
        return None

    def look(self, name, window=None):
        top = self.program()
        if top and window:
            top = self.reader.below(top, window)
        return top and self.reader.below(top, name)

    def find(self, name, window=None):
        return wait_for(f"{name!r} is in {window or 'a window'}", lambda: self.look(name, window))

    def reads(self, text, where="Message board", window=None):
        wait_for(f"{text!r} is read", lambda: text in whole(self.find(where, window)))

    def board(self):
        return whole(self.find("Message board"))

    def window(self, title):
        return wait_for(f"a window {title!r}", lambda: self.desktop.window_of(self.process, title))

    def turn_to(self, title):
        window = self.window(title)
        self.desktop.activate(window)
        return window

    def press(self, *keys):
        self.desktop.tool("xdotool", "key", "--delay", "30", *keys)

    def write(self, text, end="Return"):
        self.desktop.tool("xdotool", "type", "--delay", "5", text)
        self.press(end)

    def press_until(self, key, what, holds):
        for _ in range(40):
            if holds():
                return
            self.press(key)
        raise AssertionError(f"{key} does not lead to {what!r}")

    def go_to(self, name, window=None):
        """By the keyboard, to a control of this window or the room window."""
        self.turn_to(window or self.room)
        control = self.find(name, window or self.room)
        self.press_until("Tab", name, lambda: control.get_state_set().contains(FOCUSED))

    def use(self, name, window=None):
        self.go_to(name, window)
        self.press("space")

    def say(self, text):
        self.go_to("Message")
        self.pace()
        self.write(text)

    def pace(self):
        """Three messages within two seconds lock the program up."""
        time.sleep(max(0, self.sent + 1.1 - time.monotonic()))
        self.sent = time.monotonic()

    def choose(self, row, control):
        """Goes to a row of a list."""
        self.go_to(control)
        self.press("Home")
        self.press_until("Down", row, lambda: self.find(row, self.room).get_state_set().contains(SELECTED))

    def member_menu(self, name, entry):
        """The entry is counted from 1, over those that can be chosen."""
        self.choose(name, "Members")
        self.press("Menu")
        self.pick(entry)

    def main_menu(self, entry):
        self.turn_to(self.room)
        self.press("alt+m")
        self.pick(entry)

    def opens_options(self, entry=OPTIONS):
        self.main_menu(entry)
        self.turn_to(CHAT_OPTIONS)

    def finds_in_lists(self, name, key):
        """In the options window, which is open and is left."""
        self.press("alt+a")
        self.turn_to("Accept/Ignore List")
        self.find(name, "Chat Accept/Ignore List")
        self.press(key)
        self.turn_to(CHAT_OPTIONS)
        self.press("Escape")

    def kept(self, files):
        """What is in files of the home folder; nothing when there is none yet."""
        return "".join(path.read_text(encoding="utf-8") for path in Path(self.desktop.home.name).glob(files))

    def pick(self, entry):
        """From a menu that has just been opened; menus are not in the tree, so there is nothing to wait for."""
        time.sleep(0.5)
        self.press(*["Down"] * entry, "Return")


def without_a_messenger(desktop):
    process, window = desktop.client("-port1~")
    assert desktop.tool("xdotool", "getwindowname", window).startswith("Messenger not found")
    desktop.activate(window, "Return")
    ends(process, 1)


def opens_a_room(robin):
    """Who lets people in by hand, which is said in the options first."""
    categories = "Chat Categories"
    robin.find("Lounges")
    robin.go_to("Categories and rooms", categories)
    robin.press("Home")
    wait_for("a category is chosen", lambda: robin.find("Create", categories).get_state_set().contains(ENABLED))
    robin.press("alt+r")
    robin.turn_to("Create New Channel")
    robin.write("Evening")
    robin.press("Return", "Return")  # past the box, on the button
    robin.room = "Lounges - Evening"
    robin.reads("Created room: Lounges - Evening")

    robin.opens_options()
    robin.go_to("Auto Accept All", CHAT_OPTIONS)  # a list is heard by what is chosen in it
    robin.press("Home", "Return")  # Manual
    wait_for("the options are saved", lambda: "ACCEPTUSER" in robin.kept("* ChatOpt.dat"))


def lets_somebody_in(desktop, reader, robin):
    number = re.findall(r'<ACC r="0" cid="(\d+)"', desktop.said())[-1]
    sasha = Person(desktop, reader, f"-cid{number}", "-cnmEvening~")
    sasha.room = "Invited to join - Evening"
    sasha.reads("Waiting for server response....")
    robin.find("Sasha", robin.room)
    robin.member_menu("Sasha", 1)
    sasha.reads("You are allowed to join the chat room!")
    robin.reads("User Sasha has just joined the room.")
    return sasha


def talk(robin, sasha):
    robin.say("good evening")
    sasha.say("and to <you> \\")
    robin.reads("Sasha: and to <you> \\")
    sasha.reads("Robin: good evening")
    assert robin.board().count("good evening") == 1, "the own copy is the only one"

    robin.choose("Sasha", "Members")
    robin.choose("Wave", "Emotions")
    robin.pace()
    robin.press("Return")
    for person in (robin, sasha):
        person.reads("Robin waves at Sasha")

    robin.use("Emoticons")
    robin.turn_to("Emoticons")
    robin.press("Right", "Return", "Escape")
    robin.say("")
    sasha.reads("Robin: Angry")  # a picture is heard by its name


def in_private(desktop, robin, sasha):
    to_sasha, to_robin = "Sasha - Private Message", "Robin - Private Message"
    robin.member_menu("Sasha", PRIVATE_MESSAGE)
    robins = robin.turn_to(to_sasha)
    robin.pace()
    robin.write("just between us")
    robin.reads("just between us", "Conversation", to_sasha)
    sasha.reads("just between us", "Conversation", to_robin)
    assert desktop.tool("xdotool", "getactivewindow") == robins, "a message takes nobody's keyboard"
    sasha.go_to("Message", to_robin)
    sasha.pace()
    sasha.write("of course")
    robin.reads("of course", "Conversation", to_sasha)
    assert "between us" not in robin.board() + sasha.board()

    desktop.tool("xdotool", "windowmove", "--sync", robins, "120", "90")
    place = geometry(desktop, robin.turn_to(to_sasha))
    robin.press("Escape")
    wait_for("the place is kept", lambda: "ChatPrivMsg-u2" in robin.kept("Pylox.ini"))
    robin.member_menu("Sasha", PRIVATE_MESSAGE)
    again = robin.turn_to(to_sasha)
    wait_for("the window is where it was left", lambda: geometry(desktop, again) == place)
    robin.press("Escape")


def changes_a_colour(robin):
    robin.opens_options()
    robin.press("alt+c")  # which three of its buttons have: it goes from one to the next
    robin.use("Colors", CHAT_OPTIONS)
    robin.use("My username text colour", CHAT_OPTIONS)
    robin.turn_to("Select Color")
    robin.press("alt+h", "ctrl+a")
    robin.write("#112233", end="Tab")
    robin.press("Return")
    robin.use("Ok", CHAT_OPTIONS)
    line = f"^UNTC.*{0x332211}"
    wait_for("the colour is saved", lambda: re.search(line, robin.kept("* ChatOpt.dat"), re.M))


def ignores_somebody(robin, sasha):
    robin.member_menu("Sasha", HIGHLIGHT)
    sasha.say("can you see me")
    robin.reads("Sasha: can you see me")
    robin.member_menu("Sasha", IGNORE)
    sasha.say("can you hear me")
    sasha.say("no")
    robin.say("who is there")
    sasha.reads("Robin: who is there")
    assert "hear me" not in robin.board(), robin.board()

    robin.opens_options()
    robin.finds_in_lists("u2", "Return")
    wait_for("the lists are saved", lambda: "I-u2" in robin.kept("ChatList.dat"))


def changes_the_skin(desktop, robin):
    desktop.command("skin Dark")
    x, y, width, _ = geometry(desktop, robin.turn_to(robin.room))
    wait_for("the window is dark", lambda: sum(Screen(desktop.home.name).at(x + width // 2, y + 6)) < 150)


def saves_and_drops(robin, sasha):
    robin.main_menu(SAVE)
    robin.turn_to("Save Session to File")
    robin.press("ctrl+a")
    robin.write(f"{robin.desktop.home.name}/evening.rtf")
    wait_for("the session is saved", lambda: "good evening" in robin.kept("evening.rtf"))

    robin.member_menu("Sasha", DROP)
    sasha.reads("has been kicked from the room!")
    sasha.room = OUTSIDE
    wait_for("nobody but the owner is left", lambda: not robin.look("Sasha", robin.room))


def goes(person, key):
    """By Exit, or by what the window manager closes windows with."""
    person.turn_to(person.room)
    person.press(key)
    ends(person.process)


def finds_it_as_it_was(desktop, reader):
    """The options, the lists and the places of windows."""
    robin = Person(desktop, reader)
    robin.opens_options(OPTIONS - 1)  # there is no room to close
    robin.find("Manual", CHAT_OPTIONS)
    robin.finds_in_lists("u2", "Escape")
    goes(robin, "alt+x")


def main():
    with Desktop(sys.argv[1], accessible=True, screen_folder=True, messenger_options=["--skin", "Light"]) as desktop:
        without_a_messenger(desktop)
        reader = Reader(desktop)
        robin = Person(desktop, reader, "-showcat")
        opens_a_room(robin)
        sasha = lets_somebody_in(desktop, reader, robin)
        talk(robin, sasha)
        in_private(desktop, robin, sasha)
        changes_a_colour(robin)
        ignores_somebody(robin, sasha)
        changes_the_skin(desktop, robin)
        saves_and_drops(robin, sasha)
        goes(sasha, "alt+F4")
        goes(robin, "alt+x")
        assert '<DESTROYCHANNEL' in desktop.said(), "a room is closed with its owner"
        finds_it_as_it_was(desktop, reader)
    print("an evening by the keyboard: every window was opened, and everything was kept")


if __name__ == "__main__":
    main()
