#include "views/board/shown_position.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

#include "base/text.h"

namespace velmora {

namespace {

[[noreturn]] void throw_syntax_error(const std::string& fen) {
    throw std::logic_error("BoardPosition::fen(" + fen + ")    syntax error");
}

[[noreturn]] void throw_unknown_piece(const std::string& fen, char character) {
    std::ostringstream message;
    message << "ChessBoard::set_fen(" << fen << ") \nunkown piece 0x" << std::hex
            << unsigned(static_cast<unsigned char>(character));
    throw std::logic_error(message.str());
}

/// "king e1" or "rooks a1, h1"; empty without such a piece.
std::string places_in_words(Piece piece, const Placement& pieces) {
    std::string places;
    int count = 0;
    for (Square square(0); square.on_board(); ++square) {
        if (pieces[std::size_t(square.value())] != piece) continue;
        places += count++ == 0 ? " " : ", ";
        places += square.name();
    }
    if (count == 0) return {};
    return std::string(kind_name(piece.kind())) + (count > 1 ? "s" : "") + places;
}

std::string side_in_words(Side side, const Placement& pieces) {
    std::string text;
    for (const PieceKind kind : {PieceKind::king, PieceKind::queen, PieceKind::rook, PieceKind::bishop,
                                 PieceKind::knight, PieceKind::pawn}) {
        const std::string found = places_in_words(Piece(kind, side), pieces);
        if (!found.empty()) text += (text.empty() ? ": " : ", ") + found;
    }
    if (text.empty()) text = ": no pieces";
    return (side == Side::white ? "White" : "Black") + text + ".";
}

}  // namespace

ShownPosition read_shown_position(const std::string& fen) {
    text::WordReader words(fen);
    ShownPosition position;
    const std::string_view board = words.word();
    for (PlacementReader reader(board); !reader.at_end();) {
        const Square square = reader.square();
        switch (reader.read()) {
            case PlacementReader::Step::rank_end:
                if (reader.square() < Square(0)) throw_syntax_error(fen);
                break;
            case PlacementReader::Step::gap:
                break;
            case PlacementReader::Step::piece:
                if (!square.on_board()) throw_syntax_error(fen);
                position.pieces[std::size_t(square.value())] = reader.piece();
                break;
            case PlacementReader::Step::fault:
                throw_unknown_piece(fen, board[reader.index() - 1]);
        }
    }
    position.white_to_move = words.word() == "w";
    return position;
}

Piece shown_piece(char letter) {
    const Piece piece = piece_of_letter(letter);
    // The text names a function that has nothing to do with it: it is fixed.
    if (piece.empty() && letter != '?') {
        throw std::logic_error("Drawing::set_parent_window(Gtk::Window*)  unknown piece");
    }
    return piece;
}

Placement shown_pieces(std::string_view letters) {
    Placement pieces;
    if (letters.size() != pieces.size()) throw std::logic_error("Drawing::set_pieces: not 64 characters");
    std::transform(letters.begin(), letters.end(), pieces.begin(), shown_piece);
    return pieces;
}

std::string describe_pieces(const Placement& pieces) {
    return side_in_words(Side::white, pieces) + " " + side_in_words(Side::black, pieces);
}

}  // namespace velmora
