#include "chess/board/bitboard.h"

#include <iostream>

namespace velmora {

std::vector<Square> Bitboard::squares() const {
    std::vector<Square> result;
    for (Bitboard rest = *this; rest.any();) result.push_back(rest.pop_square());
    return result;
}

std::string Bitboard::to_string() const {
    std::string text;
    for (int shift = 60; shift >= 0; shift -= 4) text += "0123456789abcdef"[(m_bits >> shift) & 15];
    text += '\n';
    for (int rank = 7; rank >= 0; --rank) {
        for (int file = 0; file < 8; ++file) text += contains(Square(rank * 8 + file)) ? '1' : '0';
        text += '\n';
    }
    return text;
}

void Bitboard::print() const { std::cout << '\n' << to_string(); }

}  // namespace velmora
