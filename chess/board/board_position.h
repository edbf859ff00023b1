#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "chess/board/bitboard.h"
#include "chess/board/move.h"
#include "chess/board/piece.h"
#include "chess/board/side.h"
#include "chess/board/square.h"

namespace velmora {

/// The bare placement of the pieces and the side to move.
///
/// In the names of sums, "pieces" of a colour leave the pawns out. Of the sums, what stands on the board of
/// each colour is kept; the others are put together when they are asked for, which costs less than keeping
/// them up to date.
///
/// The placement is held twice, as sets by piece code and as pieces by square: generation asks "where are
/// the knights", making a move asks "what stands there", and either answer from the other's form would be
/// a search. Whatever changes one changes the other.
class BoardPosition {
public:
    /// Reads board and side of a FEN text; any side field but "w" is Black. Ranks need not sum to eight; a
    /// piece put on an occupied square replaces the earlier one. Throws std::logic_error with the fault; the
    /// object then holds what was read so far.
    void fen(std::string_view text);

    /// The empty board, White to move.
    void clear() { *this = {}; }

    /// Recomputes what is kept beside the boards by piece code.
    void update();

    /// Put a piece on a square, or take it off; the caller runs update() when done.
    ///
    /// A piece that stands on the square of put() is not cleared from its set; take() it first. Off the
    /// board both do nothing, which keeps a move that makes no sense, such as an en passant move to the
    /// first rank, from writing beyond the arrays.
    void put(Square square, Piece piece);
    void take(Square square, Piece piece);

    /// Make and take back a move on the board alone. Trusts the move, but no move can make it write out of
    /// bounds. REQUIRES of undo_move: the last move made.
    void do_move(Move move);
    void undo_move(Move move);

    /// The same for a known mover; defined in chess/board/board_moves.h.
    template <Side us>
    void do_move_of(Move move);
    template <Side us>
    void undo_move_of(Move move);

    Bitboard white_pawns() const { return pieces(Piece(1)); }
    Bitboard white_knights() const { return pieces(Piece(2)); }
    Bitboard white_bishops() const { return pieces(Piece(3)); }
    Bitboard white_rooks() const { return pieces(Piece(4)); }
    Bitboard white_queens() const { return pieces(Piece(5)); }
    Bitboard white_king() const { return pieces(Piece(6)); }
    Bitboard black_pawns() const { return pieces(Piece(9)); }
    Bitboard black_knights() const { return pieces(Piece(10)); }
    Bitboard black_bishops() const { return pieces(Piece(11)); }
    Bitboard black_rooks() const { return pieces(Piece(12)); }
    Bitboard black_queens() const { return pieces(Piece(13)); }
    Bitboard black_king() const { return pieces(Piece(14)); }

    /// By piece code; empty for codes that are no piece.
    Bitboard pieces(Piece piece) const { return m_boards[piece.code() & 15]; }
    Bitboard pieces(PieceKind kind, Side side) const { return pieces(Piece(kind, side)); }

    Bitboard white_pieces() const { return white_all() & ~white_pawns(); }
    Bitboard black_pieces() const { return black_all() & ~black_pawns(); }
    Bitboard white_all() const { return m_all.white; }
    Bitboard black_all() const { return m_all.black; }
    Bitboard all(Side side) const { return m_all[side]; }
    Bitboard diagonal_sliders() const {
        return diagonal_sliders(Side::white) | diagonal_sliders(Side::black);
    }
    Bitboard straight_sliders() const {
        return straight_sliders(Side::white) | straight_sliders(Side::black);
    }
    Bitboard diagonal_sliders(Side side) const {
        return pieces(PieceKind::bishop, side) | pieces(PieceKind::queen, side);
    }
    Bitboard straight_sliders(Side side) const {
        return pieces(PieceKind::rook, side) | pieces(PieceKind::queen, side);
    }
    Bitboard occupied() const { return m_all.white | m_all.black; }

    /// 1 when White is to move, 0 when Black is.
    std::int32_t side() const { return static_cast<std::int32_t>(m_side); }
    Side side_to_move() const { return m_side; }
    void set_side(Side side) { m_side = side; }
    void flip_side() { m_side = opposite(m_side); }

    /// `no_piece` on an empty square and off the board.
    Piece piece_on(Square square) const { return square.on_board() ? m_board[index(square)] : no_piece; }

    /// Turns the board upside down and swaps the colours, the side to move with them.
    void mirror_colours();

    /// Swaps the a-file with the h-file and so on.
    void mirror_files();

    /// Side to move and the squares of each kind of piece, a line each.
    std::string dump() const;

    /// Compares the boards and the side.
    ///
    /// The rest follows from these, and comparing it would only cost time.
    friend bool operator==(const BoardPosition& a, const BoardPosition& b) {
        return a.m_side == b.m_side && a.m_boards == b.m_boards;
    }

private:
    static std::size_t index(Square square) { return static_cast<std::size_t>(square.value() & 63); }
    Bitboard& board_of(Piece piece) { return m_boards[piece.code() & 15]; }
    template <Side us>
    void castle(Move move);
    template <Side us>
    void undo_castle(Move move);

    BySide<Bitboard> m_all;
    // Indexed by codes and squares masked to the size of the array: a move from outside may carry any
    // bits, and must not write elsewhere.
    std::array<Bitboard, piece_codes> m_boards{};  // entry 0 is scratch, 7, 8 and 15 stay empty
    std::array<Piece, 64> m_board{};
    Side m_side = Side::white;
};

/// Where a castling king and rook end, whatever their start.
struct CastlingTargets {
    Square king;
    Square rook;
};
/// King and rook end on the c- and d-file or on the g- and f-file as in classic chess: that is the rule of
/// Chess960, of which the classic start is one case. Which of the two is told by the rook's place beside
/// its king.
constexpr CastlingTargets castling_targets(Square king, Square rook, Side side) {
    const Square a_file(side == Side::white ? 0 : 56);
    return rook > king ? CastlingTargets{a_file + 6, a_file + 5} : CastlingTargets{a_file + 2, a_file + 3};
}

}  // namespace velmora
