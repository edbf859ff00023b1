#pragma once

#include <cstdint>
#include <string>

#include "chess/board/move.h"
#include "chess/board/piece.h"

namespace velmora {

class BoardPosition;

/// The count of the pieces without the kings, packed, and what follows from it.
///
/// `counts` has four bits each: from bit 0 black pawns, knights, bishops, rooks, queens, from bit 32 the
/// same for White. The key of a position depends on how it was reached: counting a board XORs count *
/// constant, moves XOR the plain constants.
///
/// Kept beside the board and followed move by move, so that asking costs nothing; only a capture or a
/// promotion changes it, which changes() tells from two fields of the move. Four bits hold the ten knights
/// that promotions allow, but not the sixteen and more of a set-up board: see set().
class Material {
public:
    /// All zero.
    void clear() { *this = {}; }

    /// Counts the pieces of a board.
    void count(const BoardPosition& board);

    /// ORs the count into its place; REQUIRES: a piece other than a king, not set before.
    void set(Piece piece, std::int32_t count);

    void add(Piece piece);
    void remove(Piece piece);

    /// Follows a move, and back.
    void do_move(Move move) {
        if (changes(move)) make_change(move);
    }
    void undo_move(Move move) {
        if (changes(move)) take_back_change(move);
    }

    std::int32_t number_of(Piece piece) const;
    std::int32_t white_pawns() const { return nibble(32); }
    std::int32_t white_knights() const { return nibble(36); }
    std::int32_t white_bishops() const { return nibble(40); }
    std::int32_t white_rooks() const { return nibble(44); }
    std::int32_t white_queens() const { return nibble(48); }
    std::int32_t black_pawns() const { return nibble(0); }
    std::int32_t black_knights() const { return nibble(4); }
    std::int32_t black_bishops() const { return nibble(8); }
    std::int32_t black_rooks() const { return nibble(12); }
    std::int32_t black_queens() const { return nibble(16); }

    /// These compare the two halves of `counts` as numbers.
    bool white_more() const { return white_half() > black_half(); }
    bool black_more() const { return white_half() < black_half(); }
    bool equal() const { return white_half() == black_half(); }

    void swap_colours() { m_counts = m_counts << 32 | m_counts >> 32; }

    std::uint64_t counts() const { return m_counts; }
    std::uint32_t key() const { return m_key; }

    /// 0 in the opening up to 1024 with a bare board.
    std::int32_t phase() const { return m_phase; }

    /// "KQRRBBNNPPPPPPPPkqrrbbnnpppppppp", White first; "Kk" for bare kings.
    std::string signature() const;

    friend bool operator==(const Material& a, const Material& b) { return a.m_counts == b.m_counts; }

private:
    std::int32_t nibble(int shift) const { return static_cast<std::int32_t>(m_counts >> shift & 15); }
    std::uint32_t white_half() const { return static_cast<std::uint32_t>(m_counts >> 32); }
    std::uint32_t black_half() const { return static_cast<std::uint32_t>(m_counts); }
    static bool changes(Move move) { return !move.capture().empty() || is_promotion(move.code()); }
    void make_change(Move move);
    void take_back_change(Move move);
    void find_phase();

    std::uint64_t m_counts = 0;
    std::uint32_t m_key = 0;
    std::int32_t m_phase = 0;
    std::int32_t m_pieces_worth = 0;  // of knights, bishops, rooks and queens; what the phase is made from
};

}  // namespace velmora
