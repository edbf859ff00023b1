#include "chess/board_position.h"

#include <algorithm>
#include <utility>

namespace velmora {

void BoardPosition::update() {
    const auto collect = [this](Side side) {
        const auto men = [this, side](PieceKind kind) { return pieces(kind, side); };
        const Bitboard diagonal = men(PieceKind::bishop) | men(PieceKind::queen);
        const Bitboard straight = men(PieceKind::rook) | men(PieceKind::queen);
        m_pieces[side] = diagonal | straight | men(PieceKind::knight) | men(PieceKind::king);
        m_all[side] = m_pieces[side] | men(PieceKind::pawn);
        m_diagonal_sliders |= diagonal;
        m_straight_sliders |= straight;
    };
    m_diagonal_sliders = m_straight_sliders = no_squares;
    collect(Side::white);
    collect(Side::black);
    m_occupied = m_all.white | m_all.black;
}

void BoardPosition::put(Square square, Piece man) {
    if (!square.on_board()) return;
    board_of(man).set(square);
    m_boards[0] = no_squares;
    m_board[index(square)] = man;
}

void BoardPosition::take(Square square, Piece man) {
    if (!square.on_board()) return;
    board_of(man).clear(square);
    m_board[index(square)] = no_piece;
}

void BoardPosition::do_move(Move move) {
    const Side side = m_side;
    const Square from = move.from();
    const Square to = move.to();
    switch (move.code()) {
        case MoveCode::null_move:
            break;
        case MoveCode::castling:
            castle(move, side);
            break;
        case MoveCode::en_passant:
            take(behind(to, side), move.capture());
            take(from, move.piece());
            put(to, move.piece());
            break;
        case MoveCode::normal_move:
            board_of(move.capture()).clear(to);
            take(from, move.piece());
            put(to, move.piece());
            break;
        default:
            board_of(move.capture()).clear(to);
            take(from, move.piece());
            put(to, Piece(promoted_kind(move.code()), side));
    }
    update();
    flip_side();
}

void BoardPosition::undo_move(Move move) {
    flip_side();
    const Side side = m_side;
    const Square from = move.from();
    const Square to = move.to();
    switch (move.code()) {
        case MoveCode::null_move:
            break;
        case MoveCode::castling:
            undo_castle(move, side);
            break;
        case MoveCode::en_passant:
            take(to, move.piece());
            put(from, move.piece());
            put(behind(to, side), move.capture());
            break;
        case MoveCode::normal_move:
            take(to, move.piece());
            put(from, move.piece());
            put(to, move.capture());
            break;
        default:
            take(to, Piece(promoted_kind(move.code()), side));
            put(from, move.piece());
            put(to, move.capture());
    }
    update();
}

void BoardPosition::castle(Move move, Side side) {
    const CastlingTargets targets = castling_targets(move.from(), move.to(), side);
    const Piece rook(PieceKind::rook, side);
    take(move.from(), move.piece());
    take(move.to(), rook);
    put(targets.king, move.piece());
    put(targets.rook, rook);
}

void BoardPosition::undo_castle(Move move, Side side) {
    const CastlingTargets targets = castling_targets(move.from(), move.to(), side);
    const Piece rook(PieceKind::rook, side);
    take(targets.king, move.piece());
    take(targets.rook, rook);
    put(move.from(), move.piece());
    put(move.to(), rook);
}

void BoardPosition::mirror_colours() {
    for (Bitboard& board : m_boards) board = board.mirror_vertical();
    std::swap_ranges(m_boards.begin(), m_boards.begin() + 8, m_boards.begin() + 8);
    std::array<Piece, 64> mirrored;
    for (Square square(0); square.on_board(); ++square) {
        const Piece man = m_board[index(square.mirror_vertical())];
        mirrored[index(square)] = man.empty() ? man : Piece(man.code() ^ 8);
    }
    m_board = mirrored;
    flip_side();
    update();
}

void BoardPosition::mirror_files() {
    for (Bitboard& board : m_boards) board = board.mirror_horizontal();
    for (auto rank = m_board.begin(); rank != m_board.end(); rank += 8) std::reverse(rank, rank + 8);
    update();
}

std::string BoardPosition::dump() const {
    std::string text = m_side == Side::white ? "side to move: white\n" : "side to move: black\n";
    for (const Side side : {Side::white, Side::black}) {
        for (auto kind = PieceKind::pawn; kind <= PieceKind::king;
             kind = static_cast<PieceKind>(static_cast<std::uint32_t>(kind) + 1)) {
            const Piece man(kind, side);
            text += man.name() + ":";
            for (const Square square : pieces(man).squares()) text += " " + square.name();
            text += '\n';
        }
    }
    return text;
}

}  // namespace velmora
