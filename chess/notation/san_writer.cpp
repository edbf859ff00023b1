#include "chess/notation/san_writer.h"

#include <stdexcept>

#include "chess/board/bit_tables.h"

namespace velmora {

namespace {

std::string no_piece_error(const ChessPosition& position, const Move& move) {
    return "FEN " + position.fen() + "\nSanMove::operator=(" + move.to_string(false) +
           "):   no piece can make this move";
}

/// What of the origin must be told so that the text means this piece and no other.
///
/// The file where it is enough, else the rank, else both, as the PGN standard (8.2.3.4) has it.
void append_origin(const ChessPosition& position, const Move& move, std::string& text) {
    const Piece piece = move.piece();
    const Square to = move.to();
    const Square from = move.from();
    const Bitboard attackers = position.attackers(to, piece.side());
    if (attackers.empty() && !piece.is_king()) throw std::logic_error(no_piece_error(position, move));
    if (!attackers.more_than_one()) return;
    // Asked of any attacker, the test refuses a piece of the side that is not to move.
    counts_for_disambiguation(position, attackers.first_square(), to);

    bool another = false;
    bool same_file = false;
    bool same_rank = false;
    // Another move is one from another square; the check bit does not make a move differ from itself.
    for (Bitboard others = attackers & position.board().pieces(piece) & ~from.bit(); others.any();) {
        const Square other = others.pop_square();
        if (!counts_for_disambiguation(position, other, to)) continue;
        another = true;
        same_file |= other.file() == from.file();
        same_rank |= other.rank() == from.rank();
    }
    if (another && (!same_file || same_rank)) text += from.file_char();
    if (same_file) text += from.rank_char();
}

void append_check(const ChessPosition& position, const Move& move, std::string& text) {
    if (!move.check()) return;
    ChessPosition after(position);
    after.do_move(move);
    text += after.is_mate() ? '#' : '+';
}

}  // namespace

std::string write_san(const ChessPosition& position, const Move& move) {
    std::string text;
    if (move.empty()) return text;
    if (move.code() == MoveCode::castling) {
        text = move.to() > move.from() ? "O-O" : "O-O-O";
        append_check(position, move, text);
        return text;
    }
    const Piece piece = move.piece();
    const bool captures = !move.capture().empty();
    if (piece.is_pawn()) {
        if (captures) text += move.from().file_char();
    } else if (!piece.empty()) {
        text += Piece(piece.kind(), Side::white).letter();
        append_origin(position, move, text);
    }
    if (captures) text += 'x';
    text += move.to().file_char();
    text += move.to().rank_char();
    if (is_promotion(move.code())) {
        text += '=';
        text += Piece(promoted_kind(move.code()), Side::white).letter();
    }
    append_check(position, move, text);
    return text;
}

bool counts_for_disambiguation(const ChessPosition& position, Square from, Square to) {
    const Piece piece = position.piece_on(from);
    if (piece.empty()) throw std::logic_error("SanMove::is_legal   move without moving piece?");
    const Side side = position.side_to_move();
    if (piece.side() != side) {
        const std::string mover = piece.is_white() ? "white" : "black";
        const std::string other = piece.is_white() ? "black" : "white";
        throw std::logic_error("SanMove::is_legal   " + mover +
                               " piece wants to move while side to move is " + other + "\nFEN " +
                               position.fen() + "\nfrom " + from.name() + " to " + to.name() + "\n");
    }
    if (position.board().all(side).contains(to)) return false;
    if (!position.pinned().contains(from)) return true;
    const Square king = position.king(side);
    return king.on_board() && bit_tables.ray_through(king, from).contains(to);
}

}  // namespace velmora
