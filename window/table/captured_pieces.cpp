#include "window/table/captured_pieces.h"

#include <algorithm>
#include <cstdlib>

namespace velmora {

namespace {

struct CountedPiece {
    PieceKind kind;
    int value;  // pawns, as they are commonly counted
    BySide<const char*> figurine;
    const char* word;
};

constexpr std::array<CountedPiece, CapturedPieces::kinds> counted = {
    {{PieceKind::pawn, 1, {"♙", "♟"}, "pawn"},
     {PieceKind::knight, 3, {"♘", "♞"}, "knight"},
     {PieceKind::bishop, 3, {"♗", "♝"}, "bishop"},
     {PieceKind::rook, 5, {"♖", "♜"}, "rook"},
     {PieceKind::queen, 9, {"♕", "♛"}, "queen"}}};

int count(const ChessPosition& position, const CountedPiece& man, Side side) {
    int found = 0;
    for (Square square(0); square < no_square; ++square) {
        if (position.piece_on(square) == Piece(man.kind, side)) ++found;
    }
    return found;
}

const char* name_of(Side side) { return side == Side::white ? "White" : "Black"; }

}  // namespace

CapturedPieces::CapturedPieces(const ChessPosition& position) {
    ChessPosition start;
    start.set_fen(position.start_fen());
    for (const Side side : {Side::white, Side::black}) {
        int promoted = 0;
        for (std::size_t place = counted.size(); place-- > 0;) {
            const int left = count(position, counted[place], side);
            const int gone = count(start, counted[place], side) - left;
            const bool is_pawn = counted[place].kind == PieceKind::pawn;
            if (gone < 0) promoted -= gone;
            m_gone[side][place] = std::max(0, is_pawn ? gone - promoted : gone);
            m_balance += (side == Side::white ? 1 : -1) * left * counted[place].value;
        }
    }
}

std::string CapturedPieces::text() const {
    std::string text;
    for (const Side side : {Side::white, Side::black}) {
        std::string taken;
        for (std::size_t place = 0; place < counted.size(); ++place) {
            for (int man = 0; man < m_gone[opposite(side)][place]; ++man) {
                taken += counted[place].figurine[opposite(side)];
            }
        }
        const bool ahead = side == Side::white ? m_balance > 0 : m_balance < 0;
        if (ahead) taken += (taken.empty() ? "+" : " +") + std::to_string(std::abs(m_balance));
        if (taken.empty()) continue;
        if (!text.empty()) text += "   ";
        text += name_of(side) + std::string(" ") + taken;
    }
    return text;
}

std::string CapturedPieces::words() const {
    std::string text;
    for (const Side side : {Side::white, Side::black}) {
        std::string taken;
        for (std::size_t place = 0; place < counted.size(); ++place) {
            const int gone = m_gone[opposite(side)][place];
            if (gone == 0) continue;
            if (!taken.empty()) taken += ", ";
            taken += std::to_string(gone) + " " + counted[place].word + (gone > 1 ? "s" : "");
        }
        if (!taken.empty()) text += name_of(side) + std::string(" has taken ") + taken + ". ";
    }
    if (m_balance == 0) return text.empty() ? text : text + "Nobody is ahead.";
    const Side ahead = m_balance > 0 ? Side::white : Side::black;
    return text + name_of(ahead) + " is " + std::to_string(std::abs(m_balance)) + " ahead.";
}

}  // namespace velmora
