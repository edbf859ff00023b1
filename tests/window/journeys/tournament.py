"""A tournament from the dialog to its last game, loaded again, started again, deleted."""
import os
import time

from driver import Atspi, Journey, accepted_by_pgn_extract, click_on, has_state, is_showing, main, set_text, text_of, wait_until, walk

class TournamentJourney(Journey):
    def move_engine(self, dialog, name, back=False):
        """Clicks an engine's row until it stands among the participants, or among the others."""
        def moved():
            dialog.clear_cache()  # what is remembered of the lists is at times older than they are
            lists = [n for n in walk(dialog) if n.get_role_name() in ("table", "tree table") and is_showing(n)]
            source, target = reversed(lists) if back else lists
            if any(n.get_name() == name for n in walk(target)):
                return True
            click_on(next(n for n in walk(source) if n.get_name() == name))
            time.sleep(0.15)  # a second click within a tenth of a second would not count
            return False
        wait_until(moved, name + " among the participants")

    def entry_with(self, dialog, text):
        """The entry of the dialog's first page that holds a text."""
        return next(n for n in walk(dialog) if n.get_role_name() == "text" and text_of(n) == text)

    def test_what_cannot_be_a_tournament_is_told_and_a_run_is_taken_up_again(self):
        program = self.start()
        program.install_engines(Alpha="seed 1\nthink 5\nplay uci", Beta="seed 2\nthink 5\nplay xboard")
        program.debug_on()
        before = "Velmora Battles"
        for event, message in (("a/b", "must not contain a slash"), ("..", "must not consist of dots"),
                               ("One alone", "wrong number of participants")):
            program.choose("Tournament", "New / Edit")
            dialog = program.dialog("Tournament")
            set_text(self.entry_with(dialog, before), event)
            before = event
            if event == "a/b":
                click_on(program.wait_for("page tab", "Participants", dialog))
                for name in ("Alpha", "Beta"):
                    self.move_engine(dialog, name)
            if event == "One alone":
                click_on(program.wait_for("page tab", "Participants", dialog))
                self.move_engine(dialog, "Beta", back=True)
            program.press_button("OK", dialog)
            program.answer_message(message)
        self.assertEqual(os.listdir(program.path("tournaments")), [])
        self.assertFalse([line for line in program.log() if "load_tournament" in line])

        program.choose("Tournament", "New / Edit")
        dialog = program.dialog("Tournament")
        set_text(self.entry_with(dialog, "One alone"), "A short one")
        set_text(self.entry_with(dialog, "0"), "2")
        program.screenshot("tournament-event")
        click_on(program.wait_for("page tab", "TimeControl", dialog))
        wait_until(lambda: program.find("radio button", "sessions", dialog), "the time controls")
        program.screenshot("tournament-time")
        click_on(program.wait_for("page tab", "Participants", dialog))
        self.move_engine(dialog, "Beta")
        program.press_button("OK", dialog)
        program.wait_for_log("0 load_tournament A short one")
        self.assertIn("participant Beta", program.read("tournaments/A short one.trn"))
        program.choose("Mode", "Tournament")
        program.wait_for_log("-----> round 2", 1, 120)
        program.wait_for_log("-----> move", 20)
        self.assertFalse(has_state(program.find("push button", "One move back"), Atspi.StateType.SENSITIVE))
        program.choose("Mode", "Human - human")  # in the middle of the second game
        program.wait_for_log("0 human_human")
        lines = program.read("tournaments/A short one.trn").splitlines()
        self.assertEqual([line.split()[-1] == "*" for line in lines if line.startswith("game")], [False, True])
        program.choose("Mode", "Tournament")
        program.wait_for_log("-----> telluser tournament_finished", 1, 120)
        program.answer_message("tournament finished")
        self.assertNotIn("*", program.read("tournaments/A short one.trn"))
        self.assertEqual(program.archive().count("[Event "), 2)
        self.assertIn(accepted_by_pgn_extract(program.path("Velmora battles.pgn")), (None, 2))
        program.wait_for_mode("Human - human")

        program.choose("Tournament", "Load")
        dialog = program.dialog("Load Tournament")
        program.screenshot("tournament-list")
        program.press_button("LOAD", dialog)
        program.wait_for_log("0 load_tournament", 2)
        program.choose("Mode", "Tournament")
        program.answer_message("tournament finished")
        program.wait_for_title("Velmora (no engine loaded)")
        played = program.read("tournaments/A short one.trn")
        program.choose("Tournament", "New / Edit")
        program.press_button("OK", program.dialog("Tournament"))
        program.wait_for_log("0 load_tournament", 3)
        self.assertIn("*", program.read("tournaments/A short one.trn"))
        self.assertEqual(program.read("tournaments/A short one.trn~"), played)
        program.choose("Tournament", "Load")
        program.press_button("DELETE", program.dialog("Load Tournament"))
        wait_until(lambda: not os.path.exists(program.path("tournaments/A short one.trn")), "the file to go")
        self.assertTrue(os.path.exists(os.path.join(os.environ["XDG_DATA_HOME"], "Trash/files/A short one.trn")))
        program.close()


main()
