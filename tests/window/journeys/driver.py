"""Uses the program as a person does: menus, mouse, keys and dialogs, by AT-SPI and xdotool.

Every wait is for an effect with a deadline. A failed journey leaves a screenshot where VELMORA_SHOTS says.
"""
import os
import re
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

Atspi.set_timeout(2000, 5000)

SOURCE = os.environ["VELMORA_SOURCE_DIR"]
SUPPORT = os.path.join(os.environ["VELMORA_BINARY_DIR"], "tests", "support")
PROGRAM = os.path.join(os.environ["VELMORA_BINARY_DIR"], "window", "velmora")
# The sanitizers make everything several times slower.
PATIENCE = float(os.environ.get("VELMORA_PATIENCE", "60"))


def wait_until(condition, what, seconds=None):
    """The first true value of condition(); AssertionError naming `what`, a text or what gives one, when time is over."""
    end = time.monotonic() + (seconds or PATIENCE)
    while True:
        try:
            value = condition()
        except (GLib.Error, AttributeError, ValueError, StopIteration):
            value = None  # the tree changed while it was walked, or a node isn't there yet
        if value:
            return value
        if time.monotonic() > end:
            raise AssertionError("waited in vain for " + (what() if callable(what) else what))
        time.sleep(0.02)


def walk(node):
    yield node
    for i in range(node.get_child_count()):
        child = node.get_child_at_index(i)
        if child:
            yield from walk(child)


def has_state(node, state):
    return node.get_state_set().contains(state)


def is_showing(node):
    return has_state(node, Atspi.StateType.SHOWING)


def place(node):
    return node.get_component_iface().get_extents(Atspi.CoordType.SCREEN)


def text_of(node):
    return node.get_text_iface().get_text(0, -1)


def set_text(node, text):
    node.get_editable_text_iface().set_text_contents(text)


def press(node):
    node.get_action_iface().do_action(0)


def xdotool(*arguments):
    subprocess.run(["xdotool", *map(str, arguments)], check=True)


def key(*names):
    xdotool("key", "--clearmodifiers", *names)


def type_keys(text):
    xdotool("type", "--clearmodifiers", "--delay", 12, text)


def click_on(node):
    box = place(node)
    xdotool("mousemove", box.x + box.width // 2, box.y + box.height // 2, "click", 1)


def window_number(process, name):
    """What the X server calls a process's window with a title that matches."""
    return wait_until(lambda: subprocess.run(
        ["xdotool", "search", "--onlyvisible", "--pid", str(process.pid), "--name", name],
        capture_output=True, text=True, check=False).stdout.split(), "the window " + name)[0]


class Velmora:
    """One run of the program in a fresh directory."""

    def __init__(self, *arguments, files=()):
        self.home = tempfile.mkdtemp(prefix="velmora-run-")
        os.symlink(os.path.join(SOURCE, "velmora.files"), self.path("velmora.files"))
        for name, text in files:
            self.write(name, text)
        self.errors = open(self.path("stderr.txt"), "w+")
        self.process = subprocess.Popen([PROGRAM, *arguments], cwd=self.home, stderr=self.errors,
                                        stdout=subprocess.DEVNULL)
        self.window = wait_until(self._find_window, "the main window")
        self.started = time.monotonic()
        # Into the corner, so that there is room beside it for the other windows.
        self.number = window_number(self.process, "Velmora")
        xdotool("windowmove", self.number, 0, 0)
        # What is measured while the window is on its way would be of two places.
        wait_until(lambda: place(self.window).x < 40 and place(self.window).y < 60, "the window in its corner")

    # -- files of the run --------------------------------------------------------------------------------------

    def path(self, name):
        return os.path.join(self.home, name)

    def write(self, name, text):
        with open(self.path(name), "w", encoding="utf-8") as file:
            file.write(text)
        return self.path(name)

    def read(self, name):
        try:
            with open(self.path(name), encoding="utf-8", errors="replace") as file:
                return file.read()
        except FileNotFoundError:
            return ""

    def log(self):
        """The lines of the channel so far, sender's mark and text, without the stamps."""
        return [line[10:] for line in self.read("interface.log").splitlines()]

    def wait_for_log(self, text, count=1):
        wait_until(lambda: sum(text in line for line in self.log()) >= count, f"{text!r} in the log")

    # -- the window --------------------------------------------------------------------------------------------

    def application(self):
        desktop = Atspi.get_desktop(0)
        children = (desktop.get_child_at_index(i) for i in range(desktop.get_child_count()))
        return next((child for child in children if child and child.get_process_id() == self.process.pid), None)

    def _find_window(self):
        assert self.process.poll() is None, "the program ended: " + self.read("stderr.txt")
        application = self.application()
        children = [application.get_child_at_index(i) for i in range(application.get_child_count())]
        return next((child for child in children if child.get_role_name() == "frame" and is_showing(child) and
                     any(node.get_role_name() == "menu bar" for node in walk(child))), None)

    def find(self, role, name=None, root=None):
        """The showing widget of a role, anywhere in the program, or nothing."""
        return next((node for node in walk(root or self.application())
                     if node.get_role_name() == role and name in (None, node.get_name()) and is_showing(node)), None)

    def wait_for(self, role, name=None, root=None):
        return wait_until(lambda: self.find(role, name, root), f"{role} {name!r}")

    def wait_until_gone(self, role):
        wait_until(lambda: self.find(role) is None, "the end of the " + role)

    def menu_item(self, menu, item):
        """The item of a menu, whether the menu is open or not."""
        bar = next(node for node in walk(self.window) if node.get_role_name() == "menu bar")
        entry = next(node for node in walk(bar) if node.get_role_name() == "menu" and node.get_name() == menu)
        return next(node for node in walk(entry) if node.get_name() == item)

    def choose(self, menu, item):
        """Picks a menu item with the mouse, as items that open a dialog want."""
        def opened():
            # The window may still have been on its way to its place when the click fell.
            entry = self.find("menu", menu, self.window)
            if entry is None:
                return None
            click_on(entry)
            end = time.monotonic() + 2
            while time.monotonic() < end:
                for node in walk(entry):
                    if node.get_name() == item and node is not entry and is_showing(node) and place(node).width > 1:
                        return node
                time.sleep(0.02)
            key("Escape")
            return None
        click_on(wait_until(opened, f"the item {menu} / {item}"))

    def is_checked(self, menu, item):
        return has_state(self.menu_item(menu, item), Atspi.StateType.CHECKED)

    def debug_on(self):
        self.choose("Options", "Debug")
        self.wait_for_log("debug true")

    # -- the board ---------------------------------------------------------------------------------------------

    def square(self, name):
        """The accessible square of a name; it says what stands on it: "e4, white pawn"."""
        return next((n for n in walk(self.window) if n.get_name().startswith(name + ", ")), None)

    def board(self):
        """Left edge, top edge and width of the 64 squares on the screen, which are as high."""
        # The board takes no click in its first half second.
        time.sleep(max(0.0, 0.7 - (time.monotonic() - self.started)))

        def squares():  # while the window changes its size they aren't square
            a1, h8 = place(self.square("a1")), place(self.square("h8"))
            width, height = h8.x + h8.width - a1.x, a1.y + a1.height - h8.y
            return (a1.x, h8.y, width) if width // 8 == height // 8 else None

        return wait_until(squares, "a board of square squares")

    def center(self, square):
        left, top, width = self.board()
        file, rank = ord(square[0]) - ord("a"), int(square[1]) - 1
        return int(left + (file + 0.5) * width / 8), int(top + (7 - rank + 0.5) * width / 8)

    def drag(self, move):
        (x1, y1), (x2, y2) = self.center(move[:2]), self.center(move[2:4])
        xdotool("mousemove", x1, y1, "mousedown", 1, "mousemove", (x1 + x2) // 2, (y1 + y2) // 2,
                "mousemove", x2, y2, "mouseup", 1)

    def play(self, *moves):
        """Drags moves and waits until each has gone to the referee. Needs the log."""
        for move in moves:
            sent = sum("usermove" in line for line in self.log())
            self.drag(move)
            if len(move) == 5:
                # Queen, rook, bishop and knight in two rows of two.
                images = self.wait_for("drawing area", root=self.wait_for("dialog"))
                box, index = place(images), "qrbn".index(move[4])
                xdotool("mousemove", box.x + box.width * (1 + 2 * (index % 2)) // 4,
                        box.y + box.height * (1 + 2 * (index // 2)) // 4, "click", 1)
                self.wait_until_gone("dialog")
            self.wait_for_log("usermove", sent + 1)

    def show_text(self, item, title):
        """Opens a window by the menu View; gives its text's widget."""
        self.choose("View", item)
        return self.wait_for("text", root=self.wait_for("frame", title))

    # -- dialogs -----------------------------------------------------------------------------------------------

    def answer_message(self, expected):
        """Closes the message box, which holds a text."""
        box = self.wait_for("alert")
        texts = [node.get_name() for node in walk(box)]
        assert any(expected in text for text in texts), texts
        self.press_button("OK", box)
        self.wait_until_gone("alert")

    def press_button(self, label, root=None):
        press(self.wait_for("push button", label, root))

    def choose_file(self, path, button="Open"):
        """Enters a path and presses the button until the chooser has gone."""
        chooser = self.wait_for("file chooser")
        entry = self.find("text", root=chooser)
        if entry is None:
            key("slash")
            entry = self.wait_for("text", root=chooser)
        set_text(entry, path)

        def gone():
            again = self.find("file chooser")
            if again is None:
                return True
            press(self.find("push button", button, again))
            time.sleep(0.3)  # the first press may only start its look at the folder
            return False

        wait_until(gone, "the end of the file chooser")

    # -- engines and the end -----------------------------------------------------------------------------------

    def screenshot(self, name):
        directory = os.environ.get("VELMORA_SHOTS")
        if directory:
            os.makedirs(directory, exist_ok=True)
            subprocess.run(["import", "-window", "root", os.path.join(directory, name + ".png")], check=False)

    def scripted_engine(self, name, script):
        """A scripted engine in the run's directory; gives its path."""
        self.write(name + ".script", script)
        os.symlink(os.path.join(SUPPORT, "scripted_engine"), self.path(name + ".engine"))
        return self.path(name + ".engine")

    def close(self):
        """Closes by the window's frame."""
        self.wait_for_end(lambda: subprocess.run(["wmctrl", "-i", "-c", self.number], check=True))

    def wait_for_end(self, cause):
        """Does what ends the program, and holds it to a good end that leaves no engine behind."""
        engines = subprocess.run(["pgrep", "-P", str(self.process.pid)], capture_output=True, text=True,
                                 check=False).stdout.split()
        cause()
        assert self.process.wait(PATIENCE) == 0, f"exit code {self.process.returncode}"
        wait_until(lambda: not any(os.path.exists("/proc/" + engine) for engine in engines), "the engines' end")

    def finish(self):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()
        self.errors.close()
        shutil.rmtree(self.home, ignore_errors=True)


class Journey(unittest.TestCase):
    """A test that runs the program; every run is closed and its complaints are looked at."""

    # What accessibility itself causes in the toolkit.
    harmless = re.compile("invalid cast from 'GtkToplevelAccessible'|WIDGET_REALIZED_FOR_EVENT|dbind|AT-SPI|"
                          "gtk_notebook_get_tab_label")

    def start(self, *arguments, **options):
        program = Velmora(*arguments, **options)
        self.addCleanup(self._end, program)
        return program

    def _end(self, program):
        if self._outcome.result and any(test is self for test, _ in
                                        self._outcome.result.failures + self._outcome.result.errors):
            program.screenshot("failed-" + self.id().rsplit(".", 1)[-1])
            print("\nThe channel's last lines:", *program.log()[-12:], sep="\n", file=sys.stderr)
        errors = program.read("stderr.txt")
        program.finish()
        complaints = [line for line in errors.splitlines()
                      if re.search("CRITICAL|WARNING|Sanitizer|runtime error:", line)
                      and not self.harmless.search(line)]
        self.assertEqual(complaints, [])


def main():
    unittest.main(verbosity=2)
