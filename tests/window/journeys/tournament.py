"""A tournament from the dialog to its last game, left in the middle and taken up again."""
import os
import time

from driver import Atspi, Journey, click_on, has_state, is_showing, main, set_text, text_of, wait_until, walk

TRN = "tournaments/A short one.trn"


class TournamentJourney(Journey):
    def take_part(self, dialog, name):
        """Clicks an engine's row until it stands among the participants."""
        def moved():
            dialog.clear_cache()  # what is remembered of the lists is at times older than they are
            others, participants = [n for n in walk(dialog) if n.get_role_name() in ("table", "tree table") and
                                    is_showing(n)]
            if any(n.get_name() == name for n in walk(participants)):
                return True
            click_on(next(n for n in walk(others) if n.get_name() == name))
            time.sleep(0.15)  # a second click within a tenth of a second would not count
            return False
        wait_until(moved, name + " among the participants")

    def test_a_match_is_set_up_played_and_taken_up_again(self):
        program = self.start()
        entries = ""
        for name, protocol in (("Alpha", "uci"), ("Beta", "xboard")):
            path = program.scripted_engine(name, f"name {name}\nthink 5\nplay {protocol}")
            entries += f"name {name}\nfilename {path}\nprotocol {protocol.replace('rd', 'rd_v2')}\n\n"
        program.write("engines.cfg", entries)
        program.debug_on()
        program.choose("Tournament", "New / Edit")
        dialog = program.wait_for("dialog", "Tournament")
        for before, after in (("Velmora Battles", "A short one"), ("0", "2")):
            set_text(next(n for n in walk(dialog) if n.get_role_name() == "text" and text_of(n) == before), after)
        program.screenshot("tournament-event")
        click_on(program.wait_for("page tab", "Participants", dialog))
        for name in ("Alpha", "Beta"):
            self.take_part(dialog, name)
        program.press_button("OK", dialog)
        program.wait_for_log("0 load_tournament A short one")
        program.choose("Mode", "Tournament")
        program.wait_for_log("-----> round 2")
        moves = sum("-----> move" in line for line in program.log())
        program.wait_for_log("-----> move", moves + 3)
        self.assertFalse(has_state(program.find("push button", "One move back"), Atspi.StateType.SENSITIVE))
        program.choose("Mode", "Human - human")  # in the middle of the second game
        program.wait_for_log("0 human_human")
        games = [line.split()[-1] for line in program.read(TRN).splitlines() if line.startswith("game")]
        self.assertEqual([result == "*" for result in games], [False, True])
        program.choose("Mode", "Tournament")
        program.wait_for_log("-----> telluser tournament_finished")
        program.answer_message("tournament finished")
        # Who has won follows the message.
        standings = program.wait_for("frame", "Standings")
        table = program.wait_for("table", "Standings", standings)
        wait_until(lambda: {"Alpha", "Beta"} <= {node.get_name() for node in walk(table)}, "both players")
        program.find("label", "A short one: 2 of 2 games played", standings)
        program.screenshot("tournament-standings")
        wait_until(lambda: program.is_checked("Mode", "Human - human"), "the end of the mode")
        self.assertNotIn("*", program.read(TRN))
        self.assertEqual(program.read("Velmora battles.pgn").count("[Event "), 2)

        program.choose("Tournament", "Load")
        program.press_button("DELETE", program.wait_for("dialog", "Load Tournament"))
        wait_until(lambda: not os.path.exists(program.path(TRN)), "the file to go")
        self.assertTrue(os.path.exists(os.path.join(os.environ["XDG_DATA_HOME"], "Trash/files/A short one.trn")))
        program.close()


main()
