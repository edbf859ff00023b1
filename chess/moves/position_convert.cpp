#include <array>
#include <stdexcept>

#include "chess/moves/legal_moves.h"
#include "chess/moves/position.h"

namespace velmora {

namespace {

/// The four castling texts of classic chess: the king's step by two squares and what it means.
///
/// With both pieces at home the step by two squares means nothing else, whatever the rights say.
struct ClassicCastling {
    std::string_view text;
    std::string_view takes_rook;
    Side side;
};
constexpr std::array<ClassicCastling, 4> classic_castlings = {{{"e1g1", "e1h1", Side::white},
                                                               {"e1c1", "e1a1", Side::white},
                                                               {"e8g8", "e8h8", Side::black},
                                                               {"e8c8", "e8a8", Side::black}}};

bool is_square(std::string_view text) {
    return text[0] >= 'a' && text[0] <= 'h' && text[1] >= '1' && text[1] <= '8';
}

/// A code for the fifth character, null_move for none that is known.
MoveCode promotion_code(char letter) {
    switch (letter) {
        case 'q':
            return MoveCode::promo_queen;
        case 'r':
            return MoveCode::promo_rook;
        case 'b':
            return MoveCode::promo_bishop;
        case 'n':
            return MoveCode::promo_knight;
        default:
            return MoveCode::null_move;
    }
}

}  // namespace

Move ChessPosition::make_move(Square from, Square to, MoveCode code) const {
    if (from == to || !from.on_board() || !to.on_board()) return {};
    const Piece piece = piece_on(from);
    if (piece.empty()) return {};
    Piece capture = piece_on(to);
    if (piece.is_king() && capture == Piece(PieceKind::rook, piece.side())) code = MoveCode::castling;
    if (code == MoveCode::castling) capture = no_piece;

    const std::int32_t steps = (to - from) * (piece.is_white() ? 1 : -1);
    if (piece.is_pawn() && (steps == 7 || steps == 9) && piece_on(to).empty()) {
        const Piece enemy_pawn(PieceKind::pawn, opposite(piece.side()));
        if (piece_on(behind(to, piece.side())) == enemy_pawn) {
            code = MoveCode::en_passant;
            capture = enemy_pawn;
        }
    }
    return {from, to, code, piece, capture};
}

Move ChessPosition::convert_to_move(std::string_view text) const {
    const auto fault = [text](const char* suffix) {
        return std::logic_error("m_cp.convert_to_move(const string& " + std::string(text) + ")" + suffix);
    };
    if (text.size() != 4 && text.size() != 5) throw fault("  invalid size");
    if (!is_square(text)) throw fault("  invalid 'from' square");
    if (!is_square(text.substr(2))) throw fault("  invalid 'to' square");
    MoveCode code = MoveCode::normal_move;
    if (text.size() == 5) {
        code = promotion_code(text[4]);
        if (code == MoveCode::null_move) throw fault("  invalid promotion piece");
    }
    const Square from(text.substr(0, 2));
    const Square to(text.substr(2, 2));
    if (piece_on(from).empty()) throw fault("  no piece on 'from' square");

    for (const ClassicCastling& castling : classic_castlings) {
        if (text == castling.text && piece_on(to).empty() &&
            piece_on(from) == Piece(PieceKind::king, castling.side) &&
            piece_on(Square(castling.takes_rook.substr(2))) == Piece(PieceKind::rook, castling.side)) {
            return convert_to_move(castling.takes_rook);
        }
    }
    const Move move = make_move(from, to, code);
    return find_legal(*this, move).value_or(move);
}

}  // namespace velmora
