#include "views/board/shown_position.h"

#include <sstream>
#include <stdexcept>

#include "base/text.h"
#include "views/board/image_code.h"
#include "views/board/square_geometry.h"

namespace velmora {

namespace {

[[noreturn]] void throw_syntax_error(const std::string& fen) {
    throw std::logic_error("BoardPosition::fen(" + fen + ")    syntax error");
}

/// "king e1" or "rooks a1, h1"; empty without a piece of that letter.
std::string pieces_of(char letter, std::string_view name, std::string_view letters) {
    std::string places;
    int count = 0;
    for (std::size_t square = 0; square < letters.size(); ++square) {
        if (letters[square] != letter) continue;
        places += (count++ == 0 ? " " : ", ") + square_name(int(square));
    }
    if (count == 0) return {};
    return std::string(name) + (count > 1 ? "s" : "") + places;
}

std::string side_in_words(std::string_view title, std::string_view pieces, std::string_view letters) {
    static constexpr std::string_view names[] = {"king", "queen", "rook", "bishop", "knight", "pawn"};
    std::string text;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const std::string found = pieces_of(pieces[i], names[i], letters);
        if (!found.empty()) text += (text.empty() ? ": " : ", ") + found;
    }
    if (text.empty()) text = ": no pieces";
    return std::string(title) + text + ".";
}

}  // namespace

ShownPosition read_shown_position(const std::string& fen) {
    text::WordReader words(fen);
    ShownPosition position{std::string(square_count, '?'), false};
    int index = 56;
    for (const char character : words.word()) {
        if (character == '/') {
            index -= 16;
            if (index < 0) throw_syntax_error(fen);
        } else if (character >= '1' && character <= '8') {
            index += character - '0';
        } else if (piece_code(character)) {
            if (!is_square(index)) throw_syntax_error(fen);
            position.letters[std::size_t(index++)] = character;
        } else {
            std::ostringstream message;
            message << "ChessBoard::set_fen(" << fen << ") \nunkown piece 0x" << std::hex
                    << unsigned(static_cast<unsigned char>(character));
            throw std::logic_error(message.str());
        }
    }
    position.white_to_move = words.word() == "w";
    return position;
}

std::string describe_pieces(std::string_view letters) {
    return side_in_words("White", "KQRBNP", letters) + " " + side_in_words("Black", "kqrbnp", letters);
}

}  // namespace velmora
