#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>

#include "chess/board/piece.h"
#include "chess/board/square.h"

namespace velmora {

/// How a move is made.
///
/// The order of the promotions is that in which they are generated, queen first.
enum class MoveCode : std::uint32_t {
    null_move = 0,  ///< no move: passes the turn
    normal_move = 1,
    promo_queen = 2,
    promo_rook = 3,
    promo_bishop = 4,
    promo_knight = 5,
    castling = 6,  ///< the king takes its own rook, in the encoding
    en_passant = 7,
};

constexpr bool is_promotion(MoveCode code) {
    return code >= MoveCode::promo_queen && code <= MoveCode::promo_knight;
}

/// What a pawn becomes; REQUIRES: is_promotion(code).
constexpr PieceKind promoted_kind(MoveCode code) {
    return static_cast<PieceKind>(7 - static_cast<std::uint32_t>(code));
}

/// The ordering class of a move; lower is tried earlier. Generated moves carry xnormal_move.
enum class XCode : std::uint32_t {
    hashtable_move = 0,
    mate_attack = 1,
    promotion = 2,
    threat_move = 3,
    extended_move = 4,
    good_capture = 5,
    safe_check = 6,
    killer = 7,
    castle = 8,
    counter_move = 9,
    checking_move = 10,
    pawn_race = 11,
    losing_capture = 12,
    historical_move = 13,
    xnormal_move = 14,
    no_xmove_t = 15,
};

/// A move in 64 bits: a word with the move and a signed ordering score.
///
/// The word: bits 0-5 to (the rook's square when castling), 6-11 from, 12-14 code, 15 check, 16-19 captured
/// piece (the captured pawn in an en passant move), 20-23 moving piece (the pawn in a promotion), 24-31
/// xcode. A word of 0 is the empty move.
///
/// A value that fits into a register, is compared by one instruction and carries what is needed to take it
/// back: captured and moving piece. Castling is stored as the king taking its own rook, the one form that
/// fits Chess960 too, where "the king moves two squares" says nothing; texts of classic chess are
/// converted at the edge.
class Move {
public:
    constexpr Move() = default;

    /// Check bit clear, xcode xnormal_move, score 0.
    constexpr Move(Square from, Square to, MoveCode code, Piece piece, Piece capture)
        : m_bits((to_bits(to.value()) & 63) | (to_bits(from.value()) & 63) << 6 | (to_bits(code) & 7) << 12 |
                 (capture.code() & 15) << 16 | (piece.code() & 15) << 20 |
                 to_bits(XCode::xnormal_move) << 24) {}

    /// From the word alone, score 0.
    static constexpr Move from_word(std::uint32_t word) {
        Move move;
        move.m_bits = word;
        return move;
    }
    constexpr std::uint32_t word() const { return static_cast<std::uint32_t>(m_bits); }

    constexpr bool empty() const { return word() == 0; }

    /// `no_square` for the empty move.
    constexpr Square from() const { return empty() ? no_square : field_square(6); }
    constexpr Square to() const { return empty() ? no_square : field_square(0); }
    /// The same without a look at the empty move, which has a1 there.
    constexpr Square from_field() const { return field_square(6); }
    constexpr Square to_field() const { return field_square(0); }
    constexpr MoveCode code() const { return static_cast<MoveCode>(word() >> 12 & 7); }
    constexpr bool check() const { return (word() >> 15 & 1) != 0; }
    constexpr Piece capture() const { return Piece(word() >> 16 & 15); }
    constexpr Piece piece() const { return Piece(word() >> 20 & 15); }
    constexpr XCode xcode() const { return static_cast<XCode>(word() >> 24); }
    constexpr std::int32_t score() const { return static_cast<std::int32_t>(m_bits >> 32); }

    constexpr void set_from(Square square) { set_field(6, 63, to_bits(square.value())); }
    constexpr void set_to(Square square) { set_field(0, 63, to_bits(square.value())); }
    constexpr void set_code(MoveCode code) { set_field(12, 7, to_bits(code)); }
    constexpr void set_check(bool check) { set_field(15, 1, check ? 1 : 0); }
    constexpr void set_capture(Piece piece) { set_field(16, 15, piece.code()); }
    constexpr void set_piece(Piece piece) { set_field(20, 15, piece.code()); }
    constexpr void set_xcode(XCode xcode) { set_field(24, 255, to_bits(xcode)); }
    constexpr void set_score(std::int32_t score) {
        m_bits = word() | static_cast<std::uint64_t>(to_bits(score)) << 32;
    }

    /// Compares all but xcode and score, so a move with its check bit differs from the same move without it.
    ///
    /// So a move that was read from a text must be looked up among the generated ones before it is
    /// compared: see find_legal().
    friend constexpr bool operator==(const Move& a, const Move& b) {
        return ((a.word() ^ b.word()) & 0xFFFFFF) == 0;
    }

    /// Whether both go from the same square to the same square with the same code; the check bit does not
    /// count.
    ///
    /// For moves from outside, whose sender cannot know what the move captures or whether it checks.
    constexpr bool same_move(const Move& other) const { return ((word() ^ other.word()) & 0x7FFF) == 0; }

    /// The ordering comparison: whether `other` is to be tried before this one.
    constexpr bool yields_to(const Move& other) const {
        return xcode() > other.xcode() || (xcode() == other.xcode() && score() < other.score());
    }

    /// The coordinate form that engines use: "e2e4", "e7e8q", "0000" for the empty move.
    ///
    /// Castling is king takes rook, "e1h1". Unless `chess960`, the four texts of classic castling become
    /// "e1g1", "e1c1", "e8g8" and "e8c8"; the text alone decides.
    ///
    /// This is the notation of the UCI protocol, in which a promotion letter is lower case and Chess960 is
    /// an option of the engine (UCI_Chess960).
    std::string to_string(bool chess960) const;

    /// All fields in words, for debugging.
    std::string dump() const;

private:
    template <class T>
    static constexpr std::uint32_t to_bits(T value) {
        return static_cast<std::uint32_t>(value);
    }
    constexpr Square field_square(int shift) const {
        return Square(static_cast<std::int32_t>(word() >> shift & 63));
    }
    constexpr void set_field(int shift, std::uint32_t mask, std::uint32_t value) {
        m_bits = (m_bits & ~(std::uint64_t{mask} << shift)) | std::uint64_t{value & mask} << shift;
    }

    std::uint64_t m_bits = 0;  // the word, and above it the score
};

static_assert(sizeof(Move) == 8);

/// Writes to_string(false).
std::ostream& operator<<(std::ostream& out, const Move& move);

}  // namespace velmora
