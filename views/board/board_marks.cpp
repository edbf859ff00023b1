#include "views/board/board_marks.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "views/board/square_geometry.h"

namespace velmora {

namespace {

/// By square, one bit for each kind of mark that it carries.
using MarkBits = std::array<std::uint8_t, square_count>;

MarkBits mark_bits(const BoardMarks& marks) {
    MarkBits bits{};
    const auto add = [&bits](Square square, int kind) {
        if (square.on_board()) bits[std::size_t(square.value())] |= std::uint8_t(1 << kind);
    };
    if (marks.last_move) {
        add(marks.last_move->first, 0);
        add(marks.last_move->second, 0);
    }
    if (marks.selected) add(*marks.selected, 1);
    for (const Square square : marks.targets) add(square, 2);
    for (const Square square : marks.captures) add(square, 3);
    if (marks.checked_king) add(*marks.checked_king, 4);
    return bits;
}

}  // namespace

BoardMarks turned(const BoardMarks& marks) {
    BoardMarks result = marks;
    const auto turn = [](Square& square) { square = turned(square); };
    if (result.last_move) {
        turn(result.last_move->first);
        turn(result.last_move->second);
    }
    if (result.selected) turn(*result.selected);
    std::for_each(result.targets.begin(), result.targets.end(), turn);
    std::for_each(result.captures.begin(), result.captures.end(), turn);
    if (result.checked_king) turn(*result.checked_king);
    return result;
}

std::vector<Square> changed_squares(const BoardMarks& before, const BoardMarks& after) {
    const MarkBits old_bits = mark_bits(before), new_bits = mark_bits(after);
    std::vector<Square> squares;
    for (Square square(0); square.on_board(); ++square) {
        const auto i = std::size_t(square.value());
        if (old_bits[i] != new_bits[i]) squares.push_back(square);
    }
    return squares;
}

}  // namespace velmora
