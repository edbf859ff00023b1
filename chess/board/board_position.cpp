#include "chess/board/board_position.h"

#include <algorithm>
#include <utility>

#include "chess/board/board_moves.h"

namespace velmora {

void BoardPosition::update() {
    m_all = {};
    for (std::uint32_t code = 1; code < piece_codes; ++code) m_all[Piece(code).side()] |= m_boards[code];
}

void BoardPosition::put(Square square, Piece piece) {
    if (!square.on_board()) return;
    board_of(piece).set(square);
    m_boards[0] = no_squares;
    m_board[index(square)] = piece;
    if (!piece.empty()) m_all[piece.side()].set(square);
}

void BoardPosition::take(Square square, Piece piece) {
    if (!square.on_board()) return;
    board_of(piece).clear(square);
    m_board[index(square)] = no_piece;
    m_all[piece.side()].clear(square);
}

void BoardPosition::do_move(Move move) {
    if (m_side == Side::white) {
        do_move_of<Side::white>(move);
    } else {
        do_move_of<Side::black>(move);
    }
}

void BoardPosition::undo_move(Move move) {
    if (m_side == Side::white) {
        undo_move_of<Side::black>(move);
    } else {
        undo_move_of<Side::white>(move);
    }
}

void BoardPosition::mirror_colours() {
    for (Bitboard& board : m_boards) board = board.mirror_vertical();
    std::swap_ranges(m_boards.begin(), m_boards.begin() + 8, m_boards.begin() + 8);
    std::array<Piece, 64> mirrored;
    for (Square square(0); square.on_board(); ++square) {
        const Piece piece = m_board[index(square.mirror_vertical())];
        mirrored[index(square)] = piece.empty() ? piece : Piece(piece.code() ^ 8);
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
            const Piece piece(kind, side);
            text += piece.name() + ":";
            for (const Square square : pieces(piece).squares()) text += " " + square.name();
            text += '\n';
        }
    }
    return text;
}

}  // namespace velmora
