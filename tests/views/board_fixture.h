#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <gtkmm/window.h>

#include <gtest/gtest.h>

#include "tests/support/gui_driver.h"
#include "views/board/chess_board.h"

namespace velmora {

/// A board on the screen, with the project's images, and the moves that it reports.
class BoardTest : public testing::Test {
protected:
    explicit BoardTest(int size = 560) : board(size) {
        const char* source = std::getenv("VELMORA_SOURCE_DIR");
        if (source) std::filesystem::current_path(source);
        window.add(board);
        board.signal_move_made().connect([this] { moves.push_back(board.get_move()); });
        EXPECT_TRUE(gui::show_and_wait(window));
    }

    Board& taker() { return dynamic_cast<Board&>(*board.get_child()); }

    /// The middle of a shown square, from the corner of the board.
    gui::Point middle(int shown_square) {
        const CellSize cell = board.drawing().cell();
        const Place corner = corner_of(shown_square, cell);
        return {corner.x + cell.width / 2.0, corner.y + cell.height / 2.0};
    }
    void drag(int from, int to) { gui::drag(taker(), middle(from), middle(to)); }
    void click(int square) { gui::click(taker(), middle(square)); }

    int code(int shown_square) { return board.drawing().table().code(shown_square); }

    Gtk::Window window;
    ChessBoard board;
    std::vector<std::pair<int, int>> moves;
    const std::string start_fen = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1";
};

}  // namespace velmora
