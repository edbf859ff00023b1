#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "chess/board/attack_maps.h"
#include "chess/board/board_position.h"
#include "chess/board/instance_number.h"
#include "chess/board/material.h"
#include "chess/board/move.h"
#include "chess/board/piece.h"
#include "chess/board/position_hash.h"
#include "chess/board/position_state.h"
#include "chess/board/side.h"
#include "chess/board/square.h"

namespace velmora {

/// A position with its history: board, side to move, rights, counters, keys, and the moves that led here.
///
/// Constructed it is the empty board without kings, which has no moves and nobody in check. Belongs to one
/// thread, reading included, because the attack maps are completed on demand. A copy is cheap: it leaves the
/// maps behind, and all tables are shared.
///
/// Its parts are classes of their own (placement, state, keys, material, maps), each of which can be
/// tested alone; this class keeps them in step. A fault in what comes from outside throws std::logic_error
/// with a text that tells the fault, whereas making a move trusts its caller: checking there would add to
/// the price of every ply.
class ChessPosition {
public:
    ChessPosition() { clear(); }

    /// The empty board, White to move, no history.
    void clear();

    /// The standard start position.
    void new_game();

    /// Chess960 start position 0 to 959, where 385 is the standard array; any other number draws one at
    /// random.
    void new_chess960(std::uint32_t number);

    /// Reads a FEN; on a fault the position stays what it was (its history and start FEN go).
    ///
    /// For a user's or an engine's text, where the worst that may happen is nothing; fen() is for those
    /// who tell the fault.
    void set_fen(std::string_view text);

    /// Reads a FEN strictly. Throws std::logic_error with the fault; the object then holds a partial
    /// position.
    void fen(std::string_view text);

    /// The FEN of the position. The en passant square shows only where an enemy pawn stands beside.
    ///
    /// So only a possible capture by a pawn makes a difference, unlike the letter of the PGN standard
    /// (16.1.3.4), which has the square behind every double step.
    std::string fen() const;

    /// The first four fields of fen().
    std::string epd() const;

    /// The FEN from which this game started, in normal form.
    const std::string& start_fen() const { return m_fen; }

    /// The moves since start_fen().
    std::vector<Move> moves() const;

    /// moves() in coordinate form, one blank between them.
    std::string moves_text() const;

    /// Makes a move that the caller knows to be legal. Any other move leaves the position in disorder.
    void do_move(Move move);

    /// Takes back last_move(); does nothing at the start of the history.
    void undo_move();

    /// The move from square to square with moving piece and capture read from the board, check bit clear.
    ///
    /// Empty when from = to or nothing stands on from. A king onto its own rook becomes castling; a pawn
    /// moving diagonally to an empty square with an enemy pawn behind it becomes en passant. Legality is not
    /// tested.
    ///
    /// It is how a pair of squares, which is all that a mouse or a text tells, becomes a move.
    Move make_move(Square from, Square to, MoveCode code) const;

    /// The move of a coordinate text such as "e2e4", "e7e8q", "e1g1" or "e1h1".
    ///
    /// A legal move gets its check bit; any other is returned with the bit clear. Throws std::logic_error
    /// when the text is no move or its from square is empty.
    ///
    /// Both ways to write castling are read, since UCI has "e1g1" in classic games and "e1h1" in Chess960,
    /// and engines mix them up.
    Move convert_to_move(std::string_view text) const;

    const BoardPosition& board() const { return m_board; }
    Piece piece_on(Square square) const { return m_board.piece_on(square); }

    /// Edit the board alone: state, keys and maps stay as they were until a FEN is read.
    void add_piece(Square square, Piece piece);
    void remove_piece(Square square, Piece piece);

    /// Toggles the side to move alone.
    void flip_side() { m_board.flip_side(); }

    /// 1 when White is to move, 0 when Black is.
    std::int32_t side() const { return m_board.side(); }
    Side side_to_move() const { return m_board.side_to_move(); }

    /// The current record; never absent.
    const PositionState& state() const { return m_states.back(); }
    std::uint16_t rights() const { return state().rights; }
    void set_rights(std::uint16_t rights) { m_states.back().rights = rights; }
    std::uint16_t halfmoves() const { return state().halfmoves; }
    std::uint16_t fullmove() const { return m_fullmove; }
    Square ep_square() const { return state().ep_square; }
    Square white_king() const { return state().kings.white; }
    Square black_king() const { return state().kings.black; }
    Square king(Side side) const { return state().kings[side]; }
    Bitboard pinned() const { return state().pinned; }
    Bitboard discovering() const { return state().discovering; }
    Move last_move() const { return state().last_move; }

    /// The Polyglot key.
    std::uint64_t key() const { return m_hash.key(state(), side_to_move()); }
    std::uint64_t piece_key() const { return m_hash.piece_key(); }
    std::uint64_t pawn_key() const { return m_hash.pawn_key(); }
    const Material& material() const { return m_material; }

    /// Whether the side to move is in check.
    bool in_check() const { return checkers().any(); }

    /// The pieces that give check to the side to move.
    Bitboard checkers() const { return velmora::checkers(m_board, state(), side_to_move()); }

    /// The pieces of a colour that attack the square.
    Bitboard attackers(Square square, Side side) const;
    Bitboard white_attackers(Square square) const { return attackers(square, Side::white); }
    Bitboard black_attackers(Square square) const { return attackers(square, Side::black); }

    /// Whether the side to move is in check and has no legal move.
    bool is_mate() const;

    /// The attack maps of the position, completed first.
    const AttackMaps& maps() const;

    /// Computes the attack maps from scratch.
    void init_maps() const { m_maps.compute(m_board); }

    /// Whether the current position has occurred n times, this time included, since the last irreversible
    /// move. REQUIRES: n >= 2.
    bool is_repetition(int n) const { return m_hash.is_repetition(n, halfmoves()); }

    /// Whether a hundred plies went by without pawn move or capture. The rule of the laws of chess that
    /// gives a player the claim to a draw; a hundred plies are fifty moves of each side.
    bool is_fifty() const { return halfmoves() > 99; }

    /// The instance number: every construction, copies included, has its own.
    std::int32_t id() const { return m_id.value(); }

    /// Print classic rights by the file letters of the rooks, too.
    void set_xfen(bool xfen) { m_xfen = xfen; }

    /// Swap the colours or the files of the whole position; the result starts a history of its own.
    void mirror_colours();
    void mirror_files();

    /// Equal board, counters, rights, en passant square, pins. Not the history: two games may have come to
    /// one position by different moves.
    friend bool operator==(const ChessPosition& a, const ChessPosition& b);

    /// Everything in words, for debugging.
    std::string dump() const;

private:
    std::uint16_t rights_from_letters(std::string_view letters) const;
    std::string rights_letters() const;
    template <Side us>
    void do_move_of(Move move);
    template <Side us>
    void undo_move_of();
    void start_history();
    void reread();

    InstanceNumber m_id;
    BoardPosition m_board;
    PositionHash m_hash;
    Material m_material;
    std::vector<PositionState> m_states;  // a record a ply, the last is the current one; never empty
    std::uint16_t m_fullmove = 1;
    std::string m_fen;
    bool m_xfen = false;
    mutable AttackMaps m_maps;
};

}  // namespace velmora
