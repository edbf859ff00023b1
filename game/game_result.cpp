#include "game/game_result.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "base/text.h"
#include "chess/moves/legal_moves.h"
#include "game/pgn_limits.h"

namespace velmora {

namespace {

/// A match game with equal pieces is a draw when more plies than this have passed quietly.
constexpr int quiet_plies = 5;

constexpr std::array<std::string_view, 4> equal_pieces = {"KQkq", "KRkr", "KBkb", "KNkn"};

}  // namespace

GameEnd result(const ChessPosition& position) {
    const auto draw = [](const char* reason) { return GameOutcome{GameResult::draw, reason}; };
    if (!has_legal_move(position)) {
        if (!position.in_check()) return draw("Stalemate");
        const Side winner = opposite(position.side_to_move());
        return GameOutcome{win_of(winner), winner == Side::white ? "White mates" : "Black mates"};
    }
    // Where two causes coincide, the one that is tested first here is named.
    if (is_insufficient_material(position)) return draw("Draw by insufficient material");
    return draw_to_claim(position);
}

GameEnd draw_to_claim(const ChessPosition& position) {
    if (position.is_fifty()) return GameOutcome{GameResult::draw, "Draw by fifty move rule"};
    if (position.is_repetition(3)) return GameOutcome{GameResult::draw, "Draw by threefold repetition"};
    return {};
}

GameOutcome loss_on_time(const ChessPosition& position, Side side) {
    for (const auto kind :
         {PieceKind::pawn, PieceKind::knight, PieceKind::bishop, PieceKind::rook, PieceKind::queen}) {
        if (position.board().pieces(kind, opposite(side)).any()) return loss_of(side, "time");
    }
    return {GameResult::draw, "time, against a bare king"};
}

bool is_insufficient_material(const ChessPosition& position) {
    const BoardPosition& board = position.board();
    const auto pieces = [&board](PieceKind kind) {
        return board.pieces(kind, Side::white) | board.pieces(kind, Side::black);
    };
    if ((pieces(PieceKind::pawn) | pieces(PieceKind::rook) | pieces(PieceKind::queen)).any()) return false;
    for (const Side side : {Side::white, Side::black}) {
        if ((board.pieces(PieceKind::knight, side) | board.pieces(PieceKind::bishop, side)).more_than_one()) {
            return false;
        }
    }
    // A bishop each: dead only on one colour of squares.
    const Bitboard white = board.white_bishops();
    const Bitboard black = board.black_bishops();
    const bool opposite_colours = ((white & ~dark_squares) | (black & dark_squares)).more_than_one() ||
                                  ((white & dark_squares) | (black & ~dark_squares)).more_than_one();
    return !opposite_colours;
}

bool is_adjudicated_draw(const ChessPosition& position) {
    return position.halfmoves() > quiet_plies &&
           std::ranges::find(equal_pieces, position.material().signature()) != equal_pieces.end();
}

Move legal_move(const ChessPosition& position, Move move) {
    return find_legal(position, move).value_or(Move());
}

bool play_if_legal(ChessPosition& position, Move move) {
    const Move legal = legal_move(position, move);
    if (legal.empty()) return false;
    position.do_move(legal);
    return true;
}

Move parse_move(const ChessPosition& position, std::string_view text) {
    try {
        return position.convert_to_move(text);
    } catch (const std::logic_error&) {
        return Move();
    }
}

GameOutcome loss_of(Side side, std::string_view reason) {
    return {win_of(opposite(side)), text::record_text(reason, pgn_limits::own_comment)};
}

}  // namespace velmora
