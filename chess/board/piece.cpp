#include "chess/board/piece.h"

#include <array>
#include <iostream>
#include <stdexcept>

namespace velmora {

namespace {

// By kind; the last is no kind.
constexpr std::array<std::int32_t, 7> values = {0, 100, 300, 300, 500, 900, 4000};
constexpr std::array<std::string_view, 7> kind_names = {"",     "pawn",  "knight", "bishop",
                                                        "rook", "queen", "king"};

constexpr bool is_a_piece(std::uint32_t code) { return code < 15 && code != 7 && code != 8; }

}  // namespace

std::string_view kind_name(PieceKind kind) { return kind_names.at(static_cast<std::size_t>(kind)); }

std::int32_t Piece::value() const {
    if (!is_a_piece(m_code)) {
        std::cout << "Piece: " << m_code << '\n';
        throw std::logic_error("Piece::value out of range");
    }
    return is_white() ? abs_value() : -abs_value();
}

std::int32_t Piece::abs_value() const {
    const std::size_t index = m_code & 7;
    if (index >= values.size()) throw std::logic_error("Piece::abs_value out of range:");
    return values[index];
}

std::string Piece::name() const {
    if (!is_a_piece(m_code)) throw std::logic_error("Piece::unknown piece");
    if (empty()) return "no piece";
    return (is_white() ? "white " : "black ") + std::string(kind_name(kind()));
}

char Piece::letter() const { return is_a_piece(m_code) ? "?PNBRQK??pnbrqk"[m_code] : '?'; }

}  // namespace velmora
