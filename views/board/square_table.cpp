#include "views/board/square_table.h"

#include <algorithm>
#include <stdexcept>

#include "views/board/image_code.h"

namespace velmora {

namespace {

/// The code that a letter puts on a square with this background.
std::uint8_t code_of(char letter, std::uint8_t background) {
    if (letter == '?') return background;
    const auto code = piece_code(letter);
    // The text names a function that has nothing to do with it; it is fixed, so it stays.
    if (!code) throw std::logic_error("Drawing::set_parent_window(Gtk::Window*)  unknown piece");
    return std::uint8_t(*code);
}

}  // namespace

SquareTable::SquareTable() {
    for (int square = 0; square < square_count; ++square) {
        m_background[std::size_t(square)] = is_dark(square) ? dark_square_code : light_square_code;
    }
    m_squares = m_background;
}

void SquareTable::set_pieces(std::string_view letters) {
    if (letters.size() != square_count) throw std::logic_error("SquareTable::set_pieces: not 64 characters");
    Codes codes{};
    std::transform(letters.begin(), letters.end(), m_background.begin(), codes.begin(), code_of);
    m_squares = codes;
    if (m_dragging) {
        if (code(m_drag_from) == m_drag_piece) {
            clear_square(m_drag_from);
        } else {
            m_dragging = false;
        }
    }
}

void SquareTable::set_piece(char letter, int square) {
    auto& place = m_squares.at(std::size_t(square));
    if (letter != '?') place = code_of(letter, 0);
}

void SquareTable::clear_square(int square) {
    m_squares.at(std::size_t(square)) = m_background.at(std::size_t(square));
}

void SquareTable::clear() {
    m_squares = m_background;
    m_dragging = false;
}

void SquareTable::turn() {
    cancel_drag();
    // Empty squares need no care: a square and its opposite are of one colour.
    std::reverse(m_squares.begin(), m_squares.end());
}

bool SquareTable::begin_drag(std::optional<int> square, Place home) {
    cancel_drag();
    if (!square || !is_piece(code(*square))) return false;
    m_dragging = true;
    m_drag_piece = code(*square);
    m_drag_from = *square;
    m_drag_place = home;
    clear_square(*square);
    return true;
}

void SquareTable::drag_to(Place place) {
    if (m_dragging) m_drag_place = place;
}

std::optional<std::pair<int, int>> SquareTable::end_drag(std::optional<int> square) {
    if (!m_dragging) {
        if (!square) return std::nullopt;
        return std::pair(*square, *square);
    }
    const int target = square.value_or(m_drag_from);
    m_squares[std::size_t(target)] = std::uint8_t(m_drag_piece);
    m_dragging = false;
    return std::pair(m_drag_from, target);
}

void SquareTable::cancel_drag() {
    if (m_dragging) end_drag(std::nullopt);
}

}  // namespace velmora
