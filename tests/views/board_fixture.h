#pragma once

#include <filesystem>
#include <string>
#include <string_view>
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
        board.signal_move_made().connect([this] {
            const auto [from, to] = board.get_move();
            moves.push_back(from.name() + to.name());
        });
        EXPECT_TRUE(gui::show_and_wait(window));
    }

    Board& taker() { return dynamic_cast<Board&>(*board.get_child()); }

    /// The middle of a shown square, from the corner of the board.
    gui::Point middle(Square shown_square) {
        const CellSize cell = board.drawing().cell();
        const Place corner = corner_of(shown_square, cell);
        return {corner.x + cell.width / 2.0, corner.y + cell.height / 2.0};
    }
    gui::Point middle(std::string_view shown_square) { return middle(Square(shown_square)); }
    void drag(std::string_view from, std::string_view to) { gui::drag(taker(), middle(from), middle(to)); }
    void click(std::string_view square) { gui::click(taker(), middle(square)); }

    /// The letter of what stands on a shown square, "?" for nothing.
    char letter(std::string_view shown_square) {
        return board.drawing().table().piece_on(Square(shown_square)).letter();
    }

    Gtk::Window window;
    ChessBoard board;
    std::vector<std::string> moves;  ///< "e2e4"
    const std::string start_fen = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1";
};

}  // namespace velmora
