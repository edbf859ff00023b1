"""A person who can't see the board: names, roles, a game by keyboard where there is one, and moves that are said."""
from driver import Journey, main, wait_until, walk


class Accessibility(Journey):
    def test_names_and_roles(self):
        program = self.start()
        program.board()
        named = {(n.get_role_name(), n.get_name()) for n in walk(program.window) if n.get_name()}
        for name in ["To the start of the game", "One move back", "One move forward", "To the end of the game"]:
            self.assertIn(("push button", name), named)
        for role, name in [("push button", "e1, white king"), ("push button", "d8, black queen"),
                           ("push button", "e4, empty")]:
            self.assertIn((role, name), named)
        program.close()

    def test_the_last_move_and_the_squares_are_told(self):
        program = self.start()
        program.debug_on()
        program.play("e2e4")
        wait_until(lambda: any("White: e4" in (n.get_name() + " " + n.get_description()) for n in
                               walk(program.window)), "the last move")
        wait_until(lambda: program.square("e4").get_name() == "e4, white pawn", "the pawn on its square")
        program.close()


main()
