#pragma once

#include <cstdint>
#include <optional>

#include "chess/board/square.h"

/// The arithmetic of a board of 8 by 8 cells, without a widget.
///
/// A shown square counts from the lower left corner of the screen: on a board seen from White's side it is
/// the square itself, on a flipped one its opposite. Both are a Square, since most of the arithmetic is the
/// same for both; what takes a shown one says so.
namespace velmora {

constexpr int square_count = 64;

/// The half turn of the board: from a square to where a flipped board shows it, and back.
constexpr Square turned(Square square) { return Square(square_count - 1 - square.value()); }

/// Whether a square is dark, as a1 is.
constexpr bool is_dark(Square square) { return (square.file() + square.rank()) % 2 == 0; }

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
constexpr Place corner_of(Square shown_square, CellSize cell) {
    return {shown_square.file() * cell.width, shown_square.reverse_rank() * cell.height};
}

/// The shown square under a point; nothing for a point beside the 64 squares.
/// A board whose pixels don't divide by eight has a strip to the right and below that belongs to no square.
std::optional<Square> square_at(double x, double y, CellSize cell);

}  // namespace velmora
