"""A tournament from the dialog to its last game, loaded again, started again, deleted."""
import os
import time

from driver import Journey, click_on, is_showing, main, wait_until, walk

ENGINES = """name Alpha
filename {0}
protocol uci

name Beta
filename {1}
protocol xboard_v2
"""


class TournamentJourney(Journey):
    def move_engine(self, dialog, name):
        """Clicks an engine's row on the left until it stands among the participants."""
        def tables():
            return [n for n in walk(dialog) if n.get_role_name() in ("table", "tree table") and is_showing(n)]

        left, right = wait_until(lambda: tables() if len(tables()) == 2 else None, "the two lists")

        def moved():
            if any(n.get_name() == name for n in walk(right)):
                return True
            for n in walk(left):
                if n.get_name() == name:
                    click_on(n)
                    break
            time.sleep(0.15)  # a second click within a tenth of a second would not count
            return False
        wait_until(moved, name + " among the participants")

    def test_a_match_from_the_dialog(self):
        program = self.start()
        alpha = program.scripted_engine("alpha", "name Alpha\nseed 1\nplay uci")
        beta = program.scripted_engine("beta", "name Beta\nseed 2\nplay xboard")
        program.write("engines.cfg", ENGINES.format(alpha, beta))
        program.debug_on()
        program.choose("Tournament", "New / Edit")
        dialog = program.dialog("Tournament")
        rounds = [n for n in walk(dialog) if n.get_role_name() == "text" and
                  n.get_text_iface().get_text(0, -1) == "0"][0]
        rounds.get_editable_text_iface().set_text_contents("2")
        click_on(program.wait_for("page tab", "Participants", dialog))
        self.move_engine(dialog, "Alpha")
        self.move_engine(dialog, "Beta")
        program.screenshot("tournament-dialog")
        program.press_button("OK", dialog)
        program.wait_for_log("0 load_tournament Velmora Battles")
        self.assertIn("participant Beta", program.read("tournaments/Velmora Battles.trn"))
        program.choose("Mode", "Tournament")
        program.wait_for_log("-----> round 1")
        program.wait_for_log("-----> move", 12)
        program.screenshot("match")
        program.wait_for_log("-----> telluser tournament_finished", 1, 120)
        program.answer_message("tournament finished")
        text = program.read("tournaments/Velmora Battles.trn")
        self.assertNotIn("*", "".join(line for line in text.splitlines() if line.startswith("game")))
        self.assertEqual(program.archive().count("[Event "), 2)
        wait_until(lambda: program.is_checked("Mode", "Human - human"), "the fall back to two people")

        program.choose("Tournament", "Load")
        dialog = program.dialog("Load Tournament")
        program.screenshot("tournament-list")
        program.press_button("LOAD", dialog)
        program.wait_for_log("0 load_tournament", 2)
        program.choose("Mode", "Tournament")
        program.answer_message("tournament finished")
        program.choose("Tournament", "Load")
        program.press_button("DELETE", program.dialog("Load Tournament"))
        wait_until(lambda: not os.path.exists(program.path("tournaments/Velmora Battles.trn")), "the file to go")
        program.close()


main()
