#include "chess/board_position.h"

#include <algorithm>
#include <utility>

namespace velmora {

void BoardPosition::update() {
    m_all = {};
    for (std::uint32_t code = 1; code < piece_codes; ++code) m_all[Piece(code).side()] |= m_boards[code];
}

void BoardPosition::put(Square square, Piece man) {
    if (!square.on_board()) return;
    board_of(man).set(square);
    m_boards[0] = no_squares;
    m_board[index(square)] = man;
    if (!man.empty()) m_all[man.side()].set(square);
}

void BoardPosition::take(Square square, Piece man) {
    if (!square.on_board()) return;
    board_of(man).clear(square);
    m_board[index(square)] = no_piece;
    m_all[man.side()].clear(square);
}

namespace {

/// What stands on the destination after a move, and where the captured man stood.
template <Side us>
Piece arriving_man(Move move) {
    return is_promotion(move.code()) ? Piece(promoted_kind(move.code()), us) : move.piece();
}
template <Side us>
Square capture_square(Move move) {
    return move.code() == MoveCode::en_passant ? behind(move.to_field(), us) : move.to_field();
}

}  // namespace

template <Side us>
void BoardPosition::castle(Move move) {
    const CastlingTargets targets = castling_targets(move.from_field(), move.to_field(), us);
    const Piece rook(PieceKind::rook, us);
    take(move.from_field(), move.piece());
    take(move.to_field(), rook);
    put(targets.king, move.piece());
    put(targets.rook, rook);
}

template <Side us>
void BoardPosition::undo_castle(Move move) {
    const CastlingTargets targets = castling_targets(move.from_field(), move.to_field(), us);
    const Piece rook(PieceKind::rook, us);
    take(targets.king, move.piece());
    take(targets.rook, rook);
    put(move.from_field(), move.piece());
    put(move.to_field(), rook);
}

template <Side us>
void BoardPosition::do_move_of(Move move) {
    m_side = opposite(us);
    if (move.code() == MoveCode::castling) {
        castle<us>(move);
    } else if (move.code() != MoveCode::null_move) {
        const Bitboard from = move.from_field().bit();
        const Bitboard to = move.to_field().bit();
        const Square captured = capture_square<us>(move);
        board_of(move.capture()) &= ~captured.bit();
        m_all[opposite(us)] &= ~captured.bit();
        m_board[index(captured)] = no_piece;

        board_of(move.piece()) &= ~from;
        board_of(arriving_man<us>(move)) |= to;
        m_all[us] = (m_all[us] & ~from) | to;
        m_board[index(move.from_field())] = no_piece;
        m_board[index(move.to_field())] = arriving_man<us>(move);
    }
}

template <Side us>
void BoardPosition::undo_move_of(Move move) {
    m_side = us;
    if (move.code() == MoveCode::castling) {
        undo_castle<us>(move);
    } else if (move.code() != MoveCode::null_move) {
        const Bitboard from = move.from_field().bit();
        const Bitboard to = move.to_field().bit();
        board_of(arriving_man<us>(move)) &= ~to;
        board_of(move.piece()) |= from;
        m_all[us] = (m_all[us] & ~to) | from;
        m_board[index(move.to_field())] = no_piece;
        m_board[index(move.from_field())] = move.piece();

        const Square captured = capture_square<us>(move);
        const Piece capture = move.capture();
        board_of(capture) |= captured.bit();
        m_boards[0] = no_squares;
        m_all[capture.side()] |= Bitboard(capture.empty() ? 0 : captured.bit().value());
        m_board[index(captured)] = capture;
    }
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
