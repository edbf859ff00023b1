#include <stdexcept>

#include "chess/board/board_position.h"
#include "chess/board/fen_fields.h"
#include "chess/board/placement.h"

namespace velmora {

namespace {

std::string hexadecimal(char character) {
    const auto code = static_cast<unsigned char>(character);
    constexpr std::string_view digits = "0123456789abcdef";
    return code < 16 ? std::string(1, digits[code]) : std::string{digits[code >> 4], digits[code & 15]};
}

/// Throws when a letter may not stand on the square.
///
/// Only what would break the rest of the program is refused: a pawn on the first or last rank, whose steps
/// would leave the board, and a second king, since check and pin are made for one a side.
void check_piece(const BoardPosition& board, Piece piece, Square square) {
    const std::string colour = piece.is_white() ? "white" : "black";
    if (piece.is_pawn() && (square.value() < 8 || square.value() > 55)) {
        throw std::logic_error("BoardPosition::fen   error: " + colour + " pawn on wrong square");
    }
    if (piece.is_king() && board.pieces(piece).any()) {
        throw std::logic_error("BoardPosition::fen   error: too many " + colour + " kings");
    }
}

}  // namespace

void BoardPosition::fen(std::string_view text) {
    clear();
    const FenFields fields = split_fen(text);
    const auto fault = [text](const std::string& what) {
        return std::logic_error("BoardPosition::fen(" + std::string(text) + ")" + what);
    };

    for (PlacementReader reader(fields.board); !reader.at_end();) {
        const std::size_t i = reader.index();
        const Square square = reader.square();
        switch (reader.read()) {
            case PlacementReader::Step::piece:
                if (!square.on_board()) throw fault("    syntax error");
                check_piece(*this, reader.piece(), square);
                take(square, piece_on(square));
                put(square, reader.piece());
                break;
            case PlacementReader::Step::fault:
                // The character named is that of the whole text, so white space ahead of the board shifts it.
                throw fault(" \nunkown piece 0x" + hexadecimal(text[i]));
            default:
                break;
        }
        // Up to its seventh character the first rank may run to 64 before its '/'.
        const int next = reader.square().value();
        if (next < 0 || (next > 63 && i > 7)) throw fault("    syntax error");
    }
    m_side = fields.side == "w" ? Side::white : Side::black;
    update();
}

}  // namespace velmora
