"""Drilling openings against a book of another program: hints, verdicts, takeback and every message."""
import os
import shutil
import unittest

from driver import Journey, main, press, wait_until

BOOK = "/usr/share/games/gnuchess/book.bin"
START = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1"
AFTER_E4 = "rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b KQkq - 0 1"


@unittest.skipUnless(os.path.exists(BOOK), "gnuchess-book is not installed")
class Learn(Journey):
    def setUp(self):
        self.program = self.start()
        self.program.debug_on()
        self.program.show_fen()
        self.program.expect_fen(START)
        os.mkdir(self.program.path("my books"))
        self.book = self.program.path("my books/book.bin")
        shutil.copy(BOOK, self.book)
        self.program.choose("File", "Polyglot book")
        self.program.choose_file(self.book)
        self.program.wait_for_log("0 polyglotbook ")

    def learn(self, *boxes):
        self.program.choose("Mode", "Learn Opening")
        dialog = self.program.dialog("Learn Openings Hints")
        for box in {"white", "black"} - set(boxes):
            press(self.program.wait_for("check box", f"hint {box} moves", dialog))
        self.program.press_button("OK", dialog)

    def arrows(self):
        """The arrows that stand on the board by the channel: "from to colour"."""
        shown = []
        for line in self.program.log():
            if "-----> clear_arrows" in line:
                shown = []
            elif "-----> set_arrow " in line:
                shown.append(line.split("set_arrow ")[1])
        return shown

    def test_hints_verdicts_and_takeback(self):
        program = self.program
        self.learn("white", "black")
        wait_until(lambda: "12 28 b" in self.arrows() and "11 27 b" in self.arrows(), "the hints of the start")
        program.screenshot("learn-hints")
        program.play("e2e4")
        wait_until(lambda: self.arrows()[0] == "12 28 g" and "50 34 b" in self.arrows(), "the verdict, then the hints")
        program.expect_fen(AFTER_E4)
        program.play("h7h5")
        program.wait_for_log("-----> takeback")
        wait_until(lambda: self.arrows() == ["55 39 r"], "the verdict on a move that the book hasn't")
        program.expect_fen(AFTER_E4)
        program.screenshot("learn-mistake")
        program.play("e7e5")
        wait_until(lambda: self.arrows()[0] == "52 36 g", "the verdict on another try")
        self.assertTrue(program.is_checked("Mode", "Learn Opening"))
        program.choose("Mode", "Human - human")
        program.wait_for_log("0 learnopenings 0")
        program.close()

    def test_the_end_of_the_book(self):
        program = self.program
        self.learn("black")
        program.wait_for_log("0 learnopenings 2")
        program.enter_fen("4k3/8/8/8/8/8/4P3/4K3 w - - 0 1")
        program.play("e2e4")
        program.answer_message("no more moves")
        program.expect_fen("4k3/8/8/8/4P3/8/8/4K3 b - - 0 1")
        program.play("e8e7")
        program.answer_message("no more moves")
        program.enter_fen(AFTER_E4)
        wait_until(lambda: "50 34 b" in self.arrows(), "Black's hints")
        program.play("c7c5")
        wait_until(lambda: self.arrows() == ["50 34 g"], "no hints when White is to move")
        program.close()


main()
