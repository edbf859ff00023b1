"""A person who can't see the board: a whole game by the keyboard alone, and moves that are said."""
from driver import Atspi, GLib, Journey, has_state, key, main, text_of, type_keys, wait_until, walk


class Reader:
    """Hears what a screen reader would say: announcements, in order."""

    def __init__(self):
        self.said = []
        self.listener = Atspi.EventListener.new(lambda event: self.said.append(event.any_data))
        self.listener.register("object:announcement")

    def wait_for(self, text):
        def heard():
            while GLib.MainContext.default().iteration(False):
                pass
            return text in self.said
        wait_until(heard, lambda: f"{text!r} to be said, not {self.said}")

    def stop(self):
        self.listener.deregister("object:announcement")


class Accessibility(Journey):
    def focused(self, program):
        """The widget that has the keyboard."""
        return next((n for n in walk(program.application()) if has_state(n, Atspi.StateType.FOCUSED)), None)

    def wait_for_focus(self, program, role):
        return wait_until(lambda: (n := self.focused(program)) and n.get_role_name() == role and n,
                          f"the keyboard in a {role}")

    def choose_by_keys(self, program, *labels):
        """Opens the menu bar and walks to a menu and an item, each time until the wanted one is selected."""
        key("F10")
        for label, step in zip(labels, ("Right", "Down")):
            def reached(label=label, step=step):
                selected = [n for n in walk(program.window) if n.get_role_name().endswith(("menu", "menu item")) and
                            n.get_name() == label and has_state(n, Atspi.StateType.SELECTED)]
                if not selected:
                    key(step)
                return selected
            wait_until(reached, label)
        key("Return")

    def test_a_game_to_mate_by_the_keyboard_alone(self):
        program = self.start()
        reader = Reader()
        self.addCleanup(reader.stop)
        program.debug_on()
        path = program.scripted_engine("mate", "name Mate\nline f2f3 e7e5 g2g4 d8h4\nplay uci")

        self.choose_by_keys(program, "Engine", "Load engine...")
        program.wait_for("file chooser")
        key("slash")
        self.wait_for_focus(program, "text")
        key("ctrl+a")
        type_keys(path)
        wait_until(lambda: text_of(self.focused(program)) == path, "the whole path")
        key("Return")
        program.wait_for("dialog", "Protocol")
        self.wait_for_focus(program, "radio button")
        key("Return")
        wait_until(lambda: program.window.get_name() == "Mate", "the engine's name in the title")
        self.choose_by_keys(program, "Mode", "Human - computer")
        program.wait_for_log("playother")

        # A move that is none stays in the field, with the reason.
        type_keys("f6")
        entry = self.wait_for_focus(program, "text")
        self.assertEqual(entry.get_name(), "Move")
        key("Return")
        wait_until(lambda: entry.get_description() == '"f6" is no legal move here', "the complaint")
        key("Escape")
        for typed, said in [("f3", ["White: f3", "Black: e5"]), ("g2g4", ["White: g4", "Black: Qh4#"])]:
            wait_until(lambda: self.focused(program) is None or self.focused(program).get_name() != "Move",
                       "the end of the field")
            type_keys(typed)
            key("Return")
            for text in said:
                reader.wait_for(text)
        self.assertEqual(reader.said, ["White: f3", "Black: e5", "White: g4", "Black: Qh4#"])
        box = program.wait_for("alert")
        self.assertIn("0-1", " ".join(n.get_name() for n in walk(box)))
        key("Return")
        program.wait_until_gone("alert")

        self.assertEqual(program.square("h4").get_name(), "h4, black queen")
        program.close()


main()
