#include "views/board/square_table.h"

#include <algorithm>

namespace velmora {

void SquareTable::set_pieces(const Placement& pieces) {
    m_pieces = pieces;
    if (m_dragging) {
        if (piece_on(m_drag_from) == m_drag_piece) {
            clear_square(m_drag_from);
        } else {
            m_dragging = false;
        }
    }
}

void SquareTable::clear() {
    m_pieces = {};
    m_dragging = false;
}

void SquareTable::turn() {
    cancel_drag();
    std::reverse(m_pieces.begin(), m_pieces.end());
}

bool SquareTable::begin_drag(std::optional<Square> square, Place home) {
    cancel_drag();
    if (!square || piece_on(*square).empty()) return false;
    m_dragging = true;
    m_drag_piece = piece_on(*square);
    m_drag_from = *square;
    m_drag_place = home;
    clear_square(*square);
    return true;
}

void SquareTable::drag_to(Place place) {
    if (m_dragging) m_drag_place = place;
}

std::optional<std::pair<Square, Square>> SquareTable::end_drag(std::optional<Square> square) {
    if (!m_dragging) {
        if (!square) return std::nullopt;
        return std::pair(*square, *square);
    }
    const Square target = square.value_or(m_drag_from);
    set_piece(m_drag_piece, target);
    m_dragging = false;
    return std::pair(m_drag_from, target);
}

void SquareTable::cancel_drag() {
    if (m_dragging) end_drag(std::nullopt);
}

}  // namespace velmora
