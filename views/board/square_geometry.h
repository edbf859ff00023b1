#pragma once

#include <cstdint>
#include <optional>
#include <string>

/// The arithmetic of a board of 8 by 8 cells, without a widget.
///
/// Squares are numbered 0 (a1), 1 (b1) ... 63 (h8). A shown square counts from the lower left corner of the
/// screen and is the square itself on a board seen from White's side.
namespace velmora {

constexpr int square_count = 64;

constexpr bool is_square(int square) { return square >= 0 && square < square_count; }

/// The half turn of the board: from a square to where a flipped board shows it, and back.
constexpr int turned(int square) { return square_count - 1 - square; }

/// Whether a square is dark, as a1 is.
constexpr bool is_dark(int square) { return (square % 8 + square / 8) % 2 == 0; }

/// "e4" for 28.
std::string square_name(int square);

/// The side of the board in pixels for a requested one: rounded down to whole cells from 360 to 1200, else
/// 560.
constexpr int board_size(int requested) {
    return requested >= 360 && requested <= 1200 ? requested / 8 * 8 : 560;
}

/// The size of one cell, in pixels or in device pixels.
struct CellSize {
    std::int32_t width = 0;
    std::int32_t height = 0;
    bool operator==(const CellSize&) const = default;
};

constexpr CellSize cell_of(int board_width, int board_height) { return {board_width / 8, board_height / 8}; }

/// A place in whole pixels, counted from the upper left corner of the board.
struct Place {
    std::int32_t x = 0;
    std::int32_t y = 0;
    bool operator==(const Place&) const = default;
};

/// The upper left corner of a shown square's cell.
constexpr Place corner_of(int shown_square, CellSize cell) {
    return {shown_square % 8 * cell.width, (7 - shown_square / 8) * cell.height};
}

/// The shown square under a point; nothing for a point beside the 64 squares.
std::optional<int> square_at(double x, double y, CellSize cell);

}  // namespace velmora
