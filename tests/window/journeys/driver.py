"""Uses the program as a person does: menus, mouse, keys and dialogs, by AT-SPI and xdotool.

Every wait is for an effect with a deadline. A failed journey leaves a screenshot where VELMORA_SHOTS says.
"""
import collections
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
BINARY = os.environ["VELMORA_BINARY_DIR"]
PROGRAM = os.path.join(BINARY, "window", "velmora")
# The sanitizers make everything several times slower.
PATIENCE = float(os.environ.get("VELMORA_PATIENCE", "20"))


def wait_until(condition, what, seconds=None):
    """The first true value of condition(); AssertionError naming `what` when the time is over."""
    end = time.monotonic() + (seconds or PATIENCE)
    while True:
        try:
            value = condition()
        except (GLib.Error, AttributeError, ValueError, StopIteration):
            value = None  # the tree changed while it was walked, or a node isn't there yet
        if value:
            return value
        if time.monotonic() > end:
            raise AssertionError("waited in vain for " + what)
        time.sleep(0.02)


def walk(node):
    yield node
    for i in range(node.get_child_count()):
        child = node.get_child_at_index(i)
        if child:
            yield from walk(child)


def is_showing(node):
    return node.get_state_set().contains(Atspi.StateType.SHOWING)


def has_state(node, state):
    return node.get_state_set().contains(state)


def place(node):
    return node.get_component_iface().get_extents(Atspi.CoordType.SCREEN)


def text_of(node):
    return node.get_text_iface().get_text(0, -1)


def set_text(node, text):
    node.get_editable_text_iface().set_text_contents(text)


def click_on_character(node, offset):
    box = node.get_text_iface().get_character_extents(offset, 0)
    click_at(box.x + 2, box.y + box.height // 2)


def press(node):
    node.get_action_iface().do_action(0)


def xdotool(*arguments):
    subprocess.run(["xdotool", *map(str, arguments)], check=True)


def key(*names):
    xdotool("key", "--clearmodifiers", *names)


def click_at(x, y):
    xdotool("mousemove", x, y, "click", 1)


def click_on(node):
    box = place(node)
    click_at(box.x + box.width // 2, box.y + box.height // 2)


Box = collections.namedtuple("Box", "x y width height")


class Velmora:
    """One run of the program in a fresh directory."""

    def __init__(self, *arguments, engines_cfg=None, environment=None):
        self.home = tempfile.mkdtemp(prefix="velmora-run-")
        os.symlink(os.path.join(SOURCE, "velmora.files"), os.path.join(self.home, "velmora.files"))
        if engines_cfg:
            self.write("engines.cfg", engines_cfg)
        self.errors = open(os.path.join(self.home, "stderr.txt"), "w+")
        self.process = subprocess.Popen([PROGRAM, *arguments], cwd=self.home, stderr=self.errors,
                                        stdout=subprocess.DEVNULL, env={**os.environ, **(environment or {})})
        self.window = wait_until(self._find_window, "the main window")
        self.started = time.monotonic()
        # Into the corner, so that there is room beside it for the other windows.
        identifier = wait_until(lambda: subprocess.run(
            ["xdotool", "search", "--onlyvisible", "--pid", str(self.process.pid), "--name", "Velmora"],
            capture_output=True, text=True, check=False).stdout.split(), "the window's number")[0]
        xdotool("windowmove", identifier, 0, 0)
        # What is measured while the window is on its way would be of two places.
        wait_until(lambda: place(self.window).x < 40 and place(self.window).y < 60, "the window in its corner")
        self.identifier = identifier

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

    def moves_from_referee(self):
        return [line.split()[-1] for line in self.log() if "-----> move " in line]

    def wait_for_log(self, text, count=1, seconds=None):
        return wait_until(lambda: sum(text in line for line in self.log()) >= count,
                          f"{text!r} in the log", seconds)

    def error_text(self):
        return self.read("stderr.txt")

    # -- the window --------------------------------------------------------------------------------------------

    def _application(self):
        desktop = Atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(i)
            if child and child.get_process_id() == self.process.pid:
                return child
        return None

    def _find_window(self):
        if self.process.poll() is not None:
            raise AssertionError("the program ended: " + self.error_text())
        application = self._application()
        if application is None:
            return None
        for i in range(application.get_child_count()):
            child = application.get_child_at_index(i)
            if child and child.get_role_name() == "frame" and is_showing(child) and \
                    any(node.get_role_name() == "menu bar" for node in walk(child)):
                return child
        return None

    def title(self):
        return self.window.get_name()

    def wait_for_title(self, title):
        wait_until(lambda: self.title() == title, f"the title {title!r}, not {self.title()!r}")

    def find(self, role, name=None, root=None):
        """The showing widget of a role, anywhere in the program, or nothing."""
        for node in walk(root or self._application()):
            if node.get_role_name() == role and name in (None, node.get_name()) and is_showing(node):
                return node
        return None

    def wait_for(self, role, name=None, root=None):
        return wait_until(lambda: self.find(role, name, root), f"{role} {name!r}")

    def menu_item(self, menu, item):
        """The item of a menu, whether the menu is open or not."""
        bar = next(node for node in walk(self.window) if node.get_role_name() == "menu bar")
        for i in range(bar.get_child_count()):
            entry = bar.get_child_at_index(i)
            if entry.get_name() != menu:
                continue
            for node in walk(entry):
                if node.get_name() == item and node.get_role_name().endswith("menu item"):
                    return node
        raise AssertionError(f"no menu item {menu} / {item}")

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

    def is_sensitive(self, menu, item):
        return has_state(self.menu_item(menu, item), Atspi.StateType.SENSITIVE)

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
        """x, y, width and height of the 64 squares on the screen."""
        corners = [place(wait_until(lambda c=c: self.square(c), "the board")) for c in ("a1", "h8")]
        # The board takes no click in its first half second.
        time.sleep(max(0.0, 0.7 - (time.monotonic() - self.started)))
        x, y = min(c.x for c in corners), min(c.y for c in corners)
        return Box(x, y, max(c.x + c.width for c in corners) - x, max(c.y + c.height for c in corners) - y)

    def resize(self, width):
        """Gives the window another width, and a height at which the board can fill it; waits until it stands."""
        xdotool("windowsize", self.identifier, width + 40, width + 160)
        boxes = [None]

        def stands():
            boxes.append(self.board())
            return boxes[-1] == boxes[-2] and boxes[-1].width >= width - 60

        wait_until(stands, f"a board of {width} pixels")

    def center(self, square, flipped=False):
        box = self.board()
        file, rank = ord(square[0]) - ord("a"), int(square[1]) - 1
        if flipped:
            file, rank = 7 - file, 7 - rank
        return (int(box.x + (file + 0.5) * box.width / 8), int(box.y + (7 - rank + 0.5) * box.height / 8))

    def drag(self, move, flipped=False):
        (x1, y1), (x2, y2) = self.center(move[:2], flipped), self.center(move[2:4], flipped)
        xdotool("mousemove", x1, y1, "mousedown", 1, "mousemove", (x1 + x2) // 2, (y1 + y2) // 2,
                "mousemove", x2, y2, "mouseup", 1)

    def click_square(self, square):
        click_at(*self.center(square))

    def show_fen(self):
        self.choose("View", "Show FEN")
        self._fen_entry()

    def _fen_entry(self):
        return self.wait_for("text", root=self.window)

    def fen(self):
        """The position that the FEN entry shows."""
        return text_of(self._fen_entry())

    def expect_fen(self, fen):
        wait_until(lambda: self.fen() == fen, f"{fen}, not {self.fen()}")

    def enter_fen(self, fen):
        set_text(self._fen_entry(), fen)
        press(self.wait_for("push button", "OK", self.window))
        self.wait_for_log("0 setboard " + fen)

    def show_text(self, item, title):
        """Opens a window by the menu View; gives its text's widget."""
        self.choose("View", item)
        return self.wait_for("text", root=self.wait_for("frame", title))

    def show_pgn(self):
        return self.show_text("Show PGN", "PGN")

    def choose_piece(self, column, row, columns=2, rows=2):
        """Clicks a piece in the promotion chooser, or with other sizes in that of the set-up mode."""
        dialog = wait_until(lambda: self.find("dialog"), "the chooser")
        box = place(wait_until(lambda: self.find("drawing area", root=dialog), "its images"))
        click_at(box.x + box.width * (1 + 2 * column) // (2 * columns),
                 box.y + box.height * (1 + 2 * row) // (2 * rows))
        wait_until(lambda: self.find("dialog") is None, "the end of the chooser")

    def promote(self, squares, letter):
        """Drags a pawn to the last rank and picks queen, rook, bishop or knight."""
        self.drag(squares)
        self.choose_piece("qrbn".index(letter) % 2, "qrbn".index(letter) // 2)
        self.wait_for_log("usermove " + squares + letter)

    def play(self, *moves):
        """Drags moves and waits until each has gone to the referee. Needs the log."""
        for move in moves:
            if len(move) == 5:
                self.promote(move[:4], move[4])
                continue
            sent = sum("usermove" in line for line in self.log())
            self.drag(move)
            self.wait_for_log("usermove", sent + 1)

    # -- dialogs -----------------------------------------------------------------------------------------------

    def answer_message(self, expected=None):
        """Closes the message box; gives its texts."""
        def texts_of(box):
            return [n.get_name() for n in walk(box) if n.get_role_name() == "label" and n.get_name()]

        box = self.wait_for("alert")
        texts = texts_of(box)
        if expected is not None:
            assert any(expected in text for text in texts), texts
        press(wait_until(lambda: self.find("push button", "OK", box), "OK"))

        def gone():  # another message may follow at once
            box = self.find("alert")
            return box is None or texts_of(box) != texts
        wait_until(gone, "the end of the message")
        return texts

    def dialog(self, title):
        return self.wait_for("dialog", title)

    def press_button(self, label, root=None):
        press(self.wait_for("push button", label, root))

    def choose_file(self, path, button="Open", answered=None):
        """Enters a path and presses the button until the chooser has gone, or what `answered` looks for has come."""
        chooser = self.wait_for("file chooser")
        entry = self.find("text", root=chooser)
        if entry is None:
            key("slash")
            entry = wait_until(lambda: self.find("text", root=chooser), "the entry of the file chooser")
        set_text(entry, path)

        def gone():
            again = self.find("file chooser")
            if again is None or (answered and answered()):
                return True
            node = self.find("push button", button, again)
            if node:
                press(node)
                time.sleep(0.3)
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
        path = self.path(name + ".engine")
        os.symlink(os.path.join(BINARY, "tests", "support", "scripted_engine"), path)
        return path

    def install_engines(self, **scripts):
        """Scripted engines in the list of installed ones; they speak what their scripts play."""
        entries = []
        for name, script in scripts.items():
            path = self.scripted_engine(name, f"name {name}\n{script}")
            protocol = "xboard_v2" if script.endswith("xboard") else "uci"
            entries.append(f"name {name}\nfilename {path}\nprotocol {protocol}\n\n")
        self.write("engines.cfg", "".join(entries))

    def kill_engine(self):
        children = subprocess.run(["pgrep", "-P", str(self.process.pid)], capture_output=True, text=True,
                                  check=True).stdout.split()
        os.kill(int(children[0]), 9)

    def children_left(self):
        """The processes of this run's engines, for a look after its end."""
        return subprocess.run(["pgrep", "-f", self.home], capture_output=True, text=True, check=False).stdout.split()

    def load_installed(self):
        """Loads the engine that is selected first in the list of installed ones."""
        self.choose("Engine", "Load installed engine...")
        self.press_button("LOAD", self.dialog("Choose Engine"))

    def load_engine(self, path, protocol="autodetect", name=None):
        """Loads an engine through the menu, the file chooser and the protocol dialog."""
        self.choose("Engine", "Load engine...")
        self.choose_file(path)
        dialog = self.dialog("Protocol")
        press(wait_until(lambda: self.find("radio button", protocol, dialog), protocol))
        self.press_button("OK", dialog)
        self.wait_for_log("-----> engine1name " + (name or ""))

    def archive(self):
        return self.read("Velmora battles.pgn")

    def wait_until_closed(self, what):
        wait_until(lambda: self.find(what) is None, "the end of the " + what)

    def leave(self, role, name=None):
        """Leaves a dialog by Escape, as soon as it has the keyboard."""
        dialog = self.wait_for(role, name)
        wait_until(lambda: has_state(dialog, Atspi.StateType.ACTIVE), f"the keyboard in the {role}")
        key("Escape")
        self.wait_until_closed(role)

    def wait_for_mode(self, item):
        wait_until(lambda: self.is_checked("Mode", item), "the mode " + item)

    def close(self):
        """Closes by the window's frame, and gives the exit code."""
        windows = subprocess.run(["wmctrl", "-lp"], capture_output=True, text=True, check=True).stdout
        for line in windows.splitlines():
            fields = line.split(None, 4)
            if int(fields[2]) == self.process.pid and fields[4].strip().endswith(self.title().strip()):
                subprocess.run(["wmctrl", "-i", "-c", fields[0]], check=True)
        return self.process.wait(PATIENCE)

    def finish(self):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()
        self.errors.close()
        shutil.rmtree(self.home, ignore_errors=True)


PGN_EXTRACT = shutil.which("pgn-extract", path="/usr/games:/usr/bin:/usr/local/bin")


def positions_by_pgn_extract(text):
    """An independent reader's positions of the main line of a game: placement, side, castling rights."""
    with tempfile.NamedTemporaryFile("w", suffix=".pgn") as file:
        file.write(text)
        file.flush()
        run = subprocess.run([PGN_EXTRACT, "-Wepd", "-s", file.name], capture_output=True, text=True, check=True)
    return [line.split()[:3] for line in run.stdout.splitlines() if line.strip()]


def accepted_by_pgn_extract(path):
    """How many games an independent reader takes without a complaint; nothing where it isn't installed."""
    if PGN_EXTRACT is None:
        return None
    run = subprocess.run([PGN_EXTRACT, "-s", "-r", path], capture_output=True, text=True, check=False)
    assert not run.stderr.strip(), run.stderr
    with open(path, encoding="utf-8", errors="replace") as file:
        return file.read().count("[Event ")


class Journey(unittest.TestCase):
    """A test that runs the program; every run is closed and its complaints are looked at."""

    # What accessibility itself causes in the toolkit.
    harmless = re.compile("invalid cast from 'GtkToplevelAccessible'|WIDGET_REALIZED_FOR_EVENT|dbind|AT-SPI|gtk_notebook_get_tab_label")

    def start(self, *arguments, **options):
        program = Velmora(*arguments, **options)
        self.addCleanup(self._end, program)
        return program

    def _end(self, program):
        if self._outcome.result and any(test is self for test, _ in
                                        self._outcome.result.failures + self._outcome.result.errors):
            program.screenshot("failed-" + self.id().rsplit(".", 1)[-1])
            print("\nThe channel's last lines:", *program.log()[-12:], sep="\n", file=sys.stderr)
        errors = program.error_text()
        program.finish()
        complaints = [line for line in errors.splitlines()
                      if re.search("CRITICAL|WARNING|Sanitizer|runtime error:", line)
                      and not self.harmless.search(line)]
        self.assertEqual(complaints, [])


def main():
    unittest.main(verbosity=2)
