"""Engines by the dialogs: load, install, uninstall, options of every kind; cancel and wrong files everywhere."""
import os

from driver import Atspi, Journey, click_on, has_state, is_showing, key, main, place, press, set_text, text_of, wait_until, walk

SCRIPT = """name Many Options
option name Ponder type check default true
option name Clear Hash type button
option name Hash type spin default 64 min 1 max 1024
option name Limit type spin default none min none max many
option name Style type combo default Normal var Solid var Normal var Risky
option name Book File type string default <empty>
play uci
"""


class EngineDialogs(Journey):
    def setUp(self):
        self.program = self.start()
        self.program.debug_on()

    def sent(self):
        """What the engine has been sent."""
        return self.program.read("partner.sent").splitlines()

    def entries(self, dialog):
        """The entries of a dialog, from top to bottom."""
        shown = [node for node in walk(dialog) if node.get_role_name() == "text" and is_showing(node)]
        return sorted(shown, key=lambda entry: place(entry).y)

    def commands(self):
        """What has gone to the referee."""
        return [line for line in self.program.log() if line.startswith("interface --> ")]

    def test_each_kind_of_option_reaches_the_engine(self):
        program = self.program
        program.load_engine(program.scripted_engine("partner", SCRIPT), "uci", "Many Options")
        program.choose("Options", "Engine...")
        dialog = program.dialog("Set Options")
        press(program.wait_for("check box", "Ponder", dialog))
        press(program.wait_for("push button", "Clear Hash", dialog))
        program.wait_for("spin button", root=dialog).get_value_iface().set_current_value(128)
        click_on(program.wait_for("combo box", root=dialog))
        key("Down", "Return")
        for entry, text in zip(self.entries(dialog), ["/tmp/a book.bin", "7"]):
            set_text(entry, text)
        program.screenshot("options")
        program.press_button("OK", dialog)
        expected = {"setoption name Ponder value false", "setoption name Hash value 128",
                    "setoption name Style value Risky", "setoption name Book File value /tmp/a book.bin",
                    "setoption name Limit value 7"}
        wait_until(lambda: expected <= set(self.sent()), f"{expected} at the engine")
        # Of the window's lines there is one for each value that has changed; a button has none.
        self.assertEqual(sum("0 setoption" in line for line in self.commands()), len(expected))
        lines = len(self.sent())
        program.choose("Options", "Engine...")
        self.assertFalse(has_state(program.wait_for("check box", "Ponder", program.dialog("Set Options")),
                                   Atspi.StateType.CHECKED))
        program.leave("dialog", "Set Options")
        program.play("e2e4")
        self.assertEqual([line for line in self.sent()[lines:] if line.startswith("setoption")], [])
        program.close()

    def test_install_load_and_uninstall(self):
        program = self.program
        program.load_engine(program.scripted_engine("partner", SCRIPT), "autodetect", "Many Options")
        for name in ["Beta", "Alpha"]:
            program.choose("Engine", "Install engine...")
            dialog = program.dialog("Install engine")
            entry = self.entries(dialog)[0]
            self.assertEqual(text_of(entry), "Many Options")
            set_text(entry, name)
            key("Return")
            program.wait_until_closed("dialog")
        self.assertIn("name Alpha", program.read("engines.cfg"))
        program.choose("Engine", "Load installed engine...")
        row = program.wait_for("table cell", "Beta", program.dialog("Choose Engine"))
        click_on(row)
        click_on(row)
        program.wait_for_log("0 load 0 name Beta")
        program.wait_for_log("-----> engine1name", 2)
        program.choose("Engine", "Load installed engine...")
        program.press_button("UNINSTALL", program.dialog("Choose Engine"))
        wait_until(lambda: "name Alpha" not in program.read("engines.cfg"), "the list without the first engine")
        self.assertIn("name Beta", program.read("engines.cfg"))
        program.close()

    def test_cancel_everywhere(self):
        program = self.program
        program.choose("Engine", "Install engine...")
        program.answer_message("No engine to install")
        program.choose("Options", "Engine...")
        program.answer_message("No engine found")
        before = len(self.commands())
        for menu, item in [("Engine", "Load engine..."), ("File", "Load game"), ("File", "Save game"),
                           ("File", "Load position"), ("File", "Save position"), ("File", "Polyglot book")]:
            program.choose(menu, item)
            program.leave("file chooser")
        program.choose("Engine", "Load engine...")
        program.choose_file(program.scripted_engine("partner", SCRIPT))
        program.leave("dialog", "Protocol")
        for menu, item, title in [("Engine", "Load installed engine...", "Choose Engine"),
                                  ("Options", "Time Control...", None), ("Tournament", "New / Edit", None),
                                  ("Tournament", "Load", None), ("Info", "About...", None)]:
            program.choose(menu, item)
            program.leave("dialog", title)
        self.assertEqual(len(self.commands()), before)
        program.load_engine(program.path("partner.engine"), "uci", "Many Options")
        before = len(self.commands())
        for menu, item in [("Engine", "Install engine..."), ("Options", "Engine...")]:
            program.choose(menu, item)
            program.leave("dialog")
        self.assertEqual(len(self.commands()), before)
        self.assertEqual(program.read("engines.cfg"), "")
        program.close()

    def test_wrong_files_are_told(self):
        program = self.program
        with open(program.path("binary"), "wb") as file:
            file.write(b"\x7fELF" + bytes(range(256)) * 10)
        for name in ["text", "empty"]:
            program.write(name, "no program\n" if name == "text" else "")
        for name in ["binary", "text", "empty"]:
            os.chmod(program.path(name), 0o755 if name != "text" else 0o644)
            program.choose("Engine", "Load engine...")
            program.choose_file(program.path(name))
            program.press_button("OK", program.dialog("Protocol"))
            program.answer_message()
        for name in ["binary", "empty"]:
            program.choose("File", "Polyglot book")
            program.choose_file(program.path(name))
            program.wait_for_log("0 polyglotbook " + program.path(name))
        program.play("e2e4")
        program.close()


main()
