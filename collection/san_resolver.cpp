#include "collection/san_resolver.h"

#include <algorithm>
#include <cstdint>

#include "chess/board/attack_maps.h"
#include "chess/board/bit_tables.h"
#include "chess/moves/legal_moves.h"
#include "chess/moves/move_legality.h"

namespace velmora {

namespace {

bool is_file(char c) { return c >= 'a' && c <= 'h'; }
bool is_rank(char c) { return c >= '1' && c <= '8'; }

PieceKind kind_of(char letter) {
    switch (letter) {
        case 'N':
            return PieceKind::knight;
        case 'B':
            return PieceKind::bishop;
        case 'R':
            return PieceKind::rook;
        case 'Q':
            return PieceKind::queen;
        case 'K':
            return PieceKind::king;
        default:
            return PieceKind::none;
    }
}

/// What a word tells, each coordinate -1 when it doesn't.
struct Told {
    PieceKind piece = PieceKind::pawn;
    PieceKind promotion = PieceKind::none;
    int from_file = -1;
    int from_rank = -1;
    int to_file = -1;
    int to_rank = -1;
    bool readable = true;
};

/// The last file and rank are the destination's; what stands ahead of them is the origin's.
Told told_by(std::string_view word) {
    Told told;
    if (!word.empty() && kind_of(word.front()) != PieceKind::none) {
        told.piece = kind_of(word.front());
        word.remove_prefix(1);
    } else if (word.starts_with('P')) {
        word.remove_prefix(1);
    }
    for (; !word.empty(); word.remove_prefix(1)) {
        const char c = word.front();
        // No coordinate ends in a file: a "b" there is a bishop.
        if (is_file(c) && word.size() > 1 && told.promotion == PieceKind::none) {
            if (told.to_file >= 0) told.from_file = told.to_file;
            told.to_file = c - 'a';
        } else if (is_rank(c) && told.promotion == PieceKind::none) {
            if (told.to_rank >= 0) told.from_rank = told.to_rank;
            told.to_rank = c - '1';
        } else if (c == 'x' || c == '-' || c == '=' || c == '+' || c == '#' || c == ':') {
            continue;
        } else if (const auto kind = kind_of(static_cast<char>(c & ~0x20));
                   kind != PieceKind::none && kind != PieceKind::king && told.piece == PieceKind::pawn) {
            told.promotion = kind;
        } else {
            told.readable = false;
        }
    }
    told.readable = told.readable && told.to_file >= 0 && told.to_rank >= 0;
    return told;
}

bool is_castling(std::string_view word, std::string_view letters, std::string_view zeros) {
    if (!word.starts_with(letters) && !word.starts_with(zeros)) return false;
    const auto rest = word.substr(letters.size());
    return rest.empty() || rest.find_first_not_of("+#=!") == std::string_view::npos;
}

/// The castling whose rook stands on the king's side of the sign: +1 towards the h-file.
Move castling(const ChessPosition& position, int direction) {
    const auto moves = legal_moves(position);
    const auto found = std::find_if(moves.begin(), moves.end(), [direction](Move move) {
        return move.code() == MoveCode::castling && (move.to() - move.from() > 0) == (direction > 0);
    });
    if (found == moves.end()) return {};
    Move move = *found;
    move.set_check(false);
    return move;
}

Bitboard told_squares(int file, int rank) {
    Bitboard squares = all_squares;
    if (file >= 0) squares &= Square(file).file_mask();
    if (rank >= 0) squares &= Square(rank * 8).rank_mask();
    return squares;
}

/// The squares from which a pawn may have come, whatever stands between.
Bitboard pawn_origins(const BoardPosition& board, Square to, Side us) {
    const Bitboard pawns = board.pieces(PieceKind::pawn, us);
    const Square near = behind(to, us);
    Bitboard origins = near.bit();
    if ((pawns & origins).empty()) origins |= behind(near, us).bit();
    return (origins | bit_tables.pawn_attacks(to, opposite(us))) & pawns;
}

/// Promotions and en passant, both rare, are the generator's.
Move generated(const ChessPosition& position, Bitboard origins, Square to, PieceKind promotion) {
    Move found;
    for (Move move : legal_moves(position)) {
        if (!move.piece().is_pawn() || move.to() != to || !origins.contains(move.from())) continue;
        const bool wanted = is_promotion(move.code()) ? promoted_kind(move.code()) == promotion
                                                      : promotion == PieceKind::none;
        if (!wanted) continue;
        if (!found.empty()) return {};
        found = move;
    }
    found.set_check(false);
    return found;
}

/// A king that goes two files is castling in programs that write coordinates.
Move king_move(const ChessPosition& position, Square from, Square to) {
    return from.rank() == to.rank() && (to - from == 2 || from - to == 2) ? castling(position, to - from)
                                                                          : Move();
}

}  // namespace

Move resolve_san(const ChessPosition& position, std::string_view word) {
    if (!word.empty() && (word.front() == 'O' || word.front() == '0')) {
        if (is_castling(word, "O-O-O", "0-0-0")) return castling(position, -1);
        if (is_castling(word, "O-O", "0-0")) return castling(position, 1);
        return {};
    }
    const Told told = told_by(word);
    if (!told.readable) return {};
    const Side us = position.side_to_move();
    const BoardPosition& board = position.board();
    const Square to(told.to_rank * 8 + told.to_file);
    const bool both_told = told.from_file >= 0 && told.from_rank >= 0;
    const Piece mover =
        both_told ? board.piece_on(Square(told.from_rank * 8 + told.from_file)) : Piece(told.piece, us);
    // "g1f3" names its piece by the square alone.
    const PieceKind kind = told.piece == PieceKind::pawn && both_told ? mover.kind() : told.piece;
    const Piece piece(kind, us);

    Bitboard candidates = told_squares(told.from_file, told.from_rank) & board.pieces(piece);
    if (kind == PieceKind::pawn) {
        // Without a file of origin the text means a push; "exd5" and "ed5" tell it.
        candidates &= pawn_origins(board, to, us);
        if (told.from_file < 0) candidates &= to.file_mask();
        if (((rank_1 | rank_8) & to.bit()).any() || to == position.ep_square()) {
            return generated(position, candidates, to, told.promotion);
        }
        if (told.promotion != PieceKind::none) return {};
    } else if (candidates.more_than_one()) {
        candidates &= attacks_of(piece, to, board.occupied());
    }
    Move found;
    while (candidates.any()) {
        const Square from = candidates.pop_square();
        if (!is_legal_normal_move(position, from, to)) {
            if (kind == PieceKind::king) return king_move(position, from, to);
            continue;
        }
        if (!found.empty()) return {};
        found = Move(from, to, MoveCode::normal_move, piece, board.piece_on(to));
    }
    return found;
}

}  // namespace velmora
