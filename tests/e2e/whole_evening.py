#!/usr/bin/python3
"""An evening with every window, by the keyboard alone: two people, looked at over the accessibility bus. And first
one who finds no messenger.

whole_evening.py BIN: the folder of the programs.
"""

import re
import sys
import time
from pathlib import Path

from desktop import Desktop, wait_for
from screen_reader import Atspi, GLib, Reader, whole
from skinned_window import Screen, geometry

# Entries of menus, counted over those that can be chosen. In a room of one's own it can be closed, not left.
OPTIONS, SAVE = 3, 4
IGNORE, DROP, PRIVATE_MESSAGE, HIGHLIGHT = 3, 4, 5, 6

FOCUSED = Atspi.StateType.FOCUSED
ENABLED = Atspi.StateType.ENABLED


class Person:
    """One client: what stands in its windows, and the keys that are pressed in them."""

    def __init__(self, desktop, reader, *arguments):
        self.desktop = desktop
        self.reader = reader
        self.room = "Pylox Chat"  # the title of the room window
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
        words = ["xdotool", "search", "--all", "--onlyvisible", "--pid", str(self.process.pid), "--name", title]
        return wait_for(f"a window {title!r}", lambda: self.desktop.tool(*words)).split()[-1]

    def turn_to(self, title):
        """As somebody who changes the window with the window manager's keys."""
        window = self.window(title)
        self.desktop.tool("xdotool", "windowactivate", "--sync", window)
        return window

    def press(self, *keys):
        self.desktop.tool("xdotool", "key", "--delay", "30", *keys)

    def write(self, text, end="Return"):
        self.desktop.tool("xdotool", "type", "--delay", "5", text)
        self.press(end)

    def go_to(self, name, window=None, key="Tab"):
        """Presses the key until the control has the keyboard."""
        control = self.find(name, window)
        for _ in range(40):
            if control.get_state_set().contains(FOCUSED):
                return control
            self.press(key)
        raise AssertionError(f"{key} does not lead to {name!r}")

    def say(self, text):
        self.turn_to("Evening$")
        self.go_to("Message", self.room)
        self.pace()
        self.write(text)

    def pace(self):
        """Three messages within two seconds lock the program up."""
        time.sleep(max(0, self.sent + 1.1 - time.monotonic()))
        self.sent = time.monotonic()

    def choose(self, row, control):
        """Goes to a row of a list."""
        self.turn_to("Evening$")
        self.go_to(control, self.room)
        self.press("Home")
        for _ in range(20):
            if self.find(row, self.room).get_state_set().contains(Atspi.StateType.SELECTED):
                return
            self.press("Down")
        raise AssertionError(f"{row!r} cannot be selected")

    def member_menu(self, name, entry):
        """The entry is counted from 1, over those that can be chosen."""
        self.choose(name, "Members")
        self.press("Menu")
        self.pick(entry)

    def main_menu(self, entry):
        self.turn_to(self.room)
        self.press("alt+m")
        self.pick(entry)

    def pick(self, entry):
        """From a menu that has just been opened; menus are not in the tree, so there is nothing to wait for."""
        time.sleep(0.5)
        self.press(*["Down"] * entry, "Return")


def without_a_messenger(desktop):
    process, window = desktop.client("-port1~")
    assert desktop.tool("xdotool", "getwindowname", window).startswith("Messenger not found")
    desktop.tool("xdotool", "windowactivate", "--sync", window, "key", "Return")
    wait_for("the program ends", lambda: process.poll() is not None)
    assert process.returncode == 1, process.returncode


def opens_a_room(robin):
    """Who lets people in by hand, which is said in the options first."""
    robin.turn_to("Chat Categories")
    robin.find("Lounges")
    robin.go_to("Categories and rooms", "Chat Categories")
    robin.press("Home")
    wait_for("a category is chosen", lambda: robin.find("Create", "Chat Categories").get_state_set().contains(ENABLED))
    robin.press("alt+r")
    robin.turn_to("Create New Channel")
    robin.write("Evening")
    robin.press("Return", "Return")  # past the box, on the button
    robin.window("Evening$")
    robin.room = "Lounges - Evening"
    robin.reads("Created room: Lounges - Evening")

    robin.main_menu(OPTIONS)
    robin.turn_to("Chat Options")
    robin.go_to("Auto Accept All", "Chat Options")  # a list is heard by what is chosen in it
    robin.press("Home")  # Manual
    robin.press("Return")
    wait_for("the options are saved", lambda: "ACCEPTUSER" in options_file(robin))


def options_file(person):
    files = list(Path(person.desktop.home.name).glob("* ChatOpt.dat"))
    return files[0].read_text(encoding="utf-8") if files else ""


def lists_file(person):
    file = Path(person.desktop.home.name) / "ChatList.dat"
    return file.read_text(encoding="utf-8") if file.exists() else ""


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
    sasha.say("and to you")
    robin.reads("Sasha: and to you")
    sasha.reads("Robin: good evening")

    robin.choose("Sasha", "Members")
    robin.choose("Wave", "Emotions")
    robin.pace()
    robin.press("Return")
    for person in (robin, sasha):
        person.reads("Robin waves at Sasha")

    robin.go_to("Emoticons", robin.room)
    robin.press("space")
    robin.turn_to("Emoticons")
    robin.press("Right", "Return", "Escape")
    robin.turn_to("Evening$")
    robin.go_to("Message", robin.room)
    robin.pace()
    robin.press("Return")
    sasha.reads("Robin: Angry")  # a picture is heard by its name


def in_private(desktop, robin, sasha):
    robin.member_menu("Sasha", PRIVATE_MESSAGE)
    robins = robin.turn_to("Sasha - Private Message")
    robin.pace()
    robin.write("just between us")
    robin.reads("just between us", "Conversation", "Sasha - Private Message")
    sasha.reads("just between us", "Conversation", "Robin - Private Message")
    assert desktop.tool("xdotool", "getactivewindow") == robins, "a message takes nobody's keyboard"
    sasha.turn_to("Robin - Private Message")
    sasha.go_to("Message", "Robin - Private Message")
    sasha.pace()
    sasha.write("of course")
    robin.reads("of course", "Conversation", "Sasha - Private Message")
    assert "between us" not in robin.board() + sasha.board()

    desktop.tool("xdotool", "windowmove", "--sync", robins, "120", "90")
    place = geometry(desktop, robin.turn_to("Sasha - Private Message"))
    robin.press("Escape")
    wait_for("the place is kept", lambda: "ChatPrivMsg-u2" in settings(robin))
    robin.member_menu("Sasha", PRIVATE_MESSAGE)
    again = robin.turn_to("Sasha - Private Message")
    wait_for("the window is where it was left", lambda: geometry(desktop, again) == place)
    robin.press("Escape")


def settings(person):
    return (Path(person.desktop.home.name) / "Pylox.ini").read_text(encoding="utf-8")


def changes_a_colour(robin):
    robin.main_menu(OPTIONS)
    robin.turn_to("Chat Options")
    robin.press("alt+c")  # which three of its buttons have: it goes from one to the next
    robin.go_to("Colors", "Chat Options")
    robin.press("space")
    robin.go_to("My username text colour", "Chat Options")
    robin.press("space")
    robin.turn_to("Select Color")
    robin.press("alt+h", "ctrl+a")
    robin.write("#112233", end="Tab")
    robin.press("Return")
    robin.turn_to("Chat Options")
    robin.go_to("Ok", "Chat Options")
    robin.press("Return")
    colour = str(0x332211)
    wait_for("the colour is saved", lambda: re.search(f"^UNTC.*{colour}", options_file(robin), re.M))


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

    robin.main_menu(OPTIONS)
    robin.turn_to("Chat Options")
    robin.press("alt+a")
    robin.turn_to("Accept/Ignore List")
    robin.find("u2", "Chat Accept/Ignore List")
    robin.press("Return")
    wait_for("the lists are saved", lambda: "I-u2" in lists_file(robin))
    robin.turn_to("Chat Options")
    robin.press("Escape")


def changes_the_skin(desktop, robin):
    desktop.command("skin Dark")
    wait_for("the window is dark", lambda: sum(Screen(desktop.home.name).at(*middle_of(robin))) < 150)


def middle_of(person):
    x, y, width, _ = geometry(person.desktop, person.turn_to("Evening$"))
    return x + width // 2, y + 6


def saves_and_drops(desktop, robin, sasha):
    file = Path(desktop.home.name) / "evening.rtf"
    robin.main_menu(SAVE)
    robin.turn_to("Save Session to File")
    robin.press("ctrl+a")
    robin.write(str(file))
    wait_for("the session is saved", lambda: file.exists() and "good evening" in file.read_text(encoding="utf-8"))

    robin.member_menu("Sasha", DROP)
    sasha.reads("has been kicked from the room!")
    wait_for("nobody but the owner is left", lambda: not robin.look("Sasha", robin.room))


def goes(person, title, key):
    """By Exit, or by what the window manager closes windows with."""
    person.turn_to(title)
    person.press(key)
    wait_for(f"{key} ends the program", lambda: person.process.poll() is not None)
    assert person.process.returncode == 0, person.process.returncode


def finds_it_as_it_was(desktop, reader):
    """The options, the lists and the places of windows."""
    robin = Person(desktop, reader)
    robin.room = "Pylox Chat"
    robin.main_menu(OPTIONS - 1)  # there is no room to close
    robin.turn_to("Chat Options")
    robin.find("Manual", "Chat Options")
    robin.press("alt+a")
    robin.turn_to("Accept/Ignore List")
    robin.find("u2", "Chat Accept/Ignore List")
    robin.press("Escape")
    robin.turn_to("Chat Options")
    robin.press("Escape")
    goes(robin, "Pylox Chat", "alt+x")


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
        saves_and_drops(desktop, robin, sasha)
        goes(sasha, "Pylox Chat", "alt+F4")
        goes(robin, "Evening$", "alt+x")
        assert '<DESTROYCHANNEL' in desktop.said(), "a room is closed with its owner"
        finds_it_as_it_was(desktop, reader)
    print("an evening by the keyboard: every window was opened, and everything was kept")


if __name__ == "__main__":
    main()
