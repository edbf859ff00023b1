#include <stdexcept>

#include "chess/board/board_position.h"
#include "chess/board/fen_fields.h"

namespace velmora {

namespace {

constexpr std::string_view letters = "PNBRQKpnbrqk";

std::string hexadecimal(char character) {
    const auto code = static_cast<unsigned char>(character);
    constexpr std::string_view digits = "0123456789abcdef";
    return code < 16 ? std::string(1, digits[code]) : std::string{digits[code >> 4], digits[code & 15]};
}

Piece piece_of(char letter) {
    const std::size_t i = letters.find(letter);
    if (i == std::string_view::npos) return no_piece;
    return i < 6 ? Piece(static_cast<PieceKind>(i + 1), Side::white)
                 : Piece(static_cast<PieceKind>(i - 5), Side::black);
}

/// Throws when a letter may not stand on the square.
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

    Square square(56);
    for (std::size_t i = 0; i < fields.board.size(); ++i) {
        const char character = fields.board[i];
        if (character == '/') {
            square -= 16;
        } else if (character >= '1' && character <= '8') {
            square += character - '0';
        } else if (const Piece piece = piece_of(character); !piece.empty()) {
            if (!square.on_board()) throw fault("    syntax error");
            check_piece(*this, piece, square);
            take(square, piece_on(square));
            put(square, piece);
            ++square;
        } else {
            // The character named is that of the whole text, so white space ahead of the board shifts it.
            throw fault(" \nunkown piece 0x" + hexadecimal(text[i]));
        }
        // Up to its seventh character the first rank may run to 64 before its '/'.
        if (square.value() < 0 || (square.value() > 63 && i > 7)) throw fault("    syntax error");
    }
    m_side = fields.side == "w" ? Side::white : Side::black;
    update();
}

}  // namespace velmora
