"""A tournament from the dialog to its last game, loaded again, started again, deleted."""
import os
import time

from driver import Journey, accepted_by_pgn_extract, click_on, is_showing, main, wait_until, walk

ENGINES = """name Alpha
filename {0}
protocol uci

name Beta
filename {1}
protocol xboard_v2
"""


class TournamentJourney(Journey):
    def move_engine(self, dialog, name, back=False):
        """Clicks an engine's row until it stands among the participants, or among the others."""
        def tables():
            return [n for n in walk(dialog) if n.get_role_name() in ("table", "tree table") and is_showing(n)]

        left, right = wait_until(lambda: tables() if len(tables()) == 2 else None, "the two lists")
        source, target = (right, left) if back else (left, right)

        def moved():
            if any(n.get_name() == name for n in walk(target)):
                return True
            for n in walk(source):
                if n.get_name() == name:
                    click_on(n)
                    break
            time.sleep(0.15)  # a second click within a tenth of a second would not count
            return False
        wait_until(moved, name + " among the participants")

    def entry_with(self, dialog, text):
        """The entry of the dialog's first page that holds a text."""
        return [n for n in walk(dialog) if n.get_role_name() == "text" and
                n.get_text_iface().get_text(0, -1) == text][0].get_editable_text_iface()

    def test_what_cannot_be_a_tournament_is_told_and_a_run_is_taken_up_again(self):
        program = self.start()
        names = ("Alpha", "Beta")
        for number, name in enumerate(names, 1):
            program.scripted_engine(name, f"name {name}\nseed {number}\nthink 5\nplay uci")
        program.write("engines.cfg", "".join(f"name {n}\nfilename {program.path(n + '.engine')}\nprotocol uci\n\n"
                                             for n in names))
        program.debug_on()
        before = "Velmora Battles"
        for event, message in (("a/b", "must not contain a slash"), ("..", "must not consist of dots"),
                               ("One alone", "wrong number of participants")):
            program.choose("Tournament", "New / Edit")
            dialog = program.dialog("Tournament")
            self.entry_with(dialog, before).set_text_contents(event)
            before = event
            if event == "a/b":
                click_on(program.wait_for("page tab", "Participants", dialog))
                for name in names:
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
        self.entry_with(dialog, "One alone").set_text_contents("A short one")
        self.entry_with(dialog, "0").set_text_contents("2")
        program.screenshot("tournament-event")
        click_on(program.wait_for("page tab", "TimeControl", dialog))
        wait_until(lambda: program.find("radio button", "sessions", dialog), "the time controls")
        program.screenshot("tournament-time")
        click_on(program.wait_for("page tab", "Participants", dialog))
        self.move_engine(dialog, "Beta")
        program.press_button("OK", dialog)
        program.wait_for_log("0 load_tournament A short one")
        program.choose("Mode", "Tournament")
        program.wait_for_log("-----> round 2", 1, 120)
        program.wait_for_log("-----> move", 20)
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
        program.close()

    def test_a_match_from_the_dialog(self):
        program = self.start()
        alpha = program.scripted_engine("alpha", "name Alpha\nseed 1\nplay uci")
        beta = program.scripted_engine("beta", "name Beta\nseed 2\nplay xboard")
        program.write("engines.cfg", ENGINES.format(alpha, beta))
        program.debug_on()
        program.choose("Tournament", "New / Edit")
        dialog = program.dialog("Tournament")
        self.entry_with(dialog, "0").set_text_contents("2")
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
