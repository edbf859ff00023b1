#include "chess/board/square.h"

#include <stdexcept>

namespace velmora {

Square::Square(std::string_view text) {
    if (text.size() != 2) throw std::logic_error("Square::Square(string)  size() error");
    m_square = static_cast<signed char>(text[0]) - 'a' + (static_cast<signed char>(text[1]) - '1') * 8;
    if (!on_board()) throw std::logic_error("Square::Square(string)  out of range");
}

std::string Square::name() const {
    if (m_square == no_square.m_square) return "no_square";
    if (!on_board()) throw std::logic_error("Square::name()const m_square=" + std::to_string(m_square));
    return {file_char(), rank_char()};
}

}  // namespace velmora
