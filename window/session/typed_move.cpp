#include "window/session/typed_move.h"

#include <string>

#include "chess/moves/legal_moves.h"
#include "chess/notation/san_move.h"

namespace velmora {

namespace {

/// What tells a move from others: without blanks, captures, checks and the signs between squares.
std::string bare(std::string_view text) {
    std::string left;
    for (const char letter : text) {
        if (std::string_view(" \t\r\n+#=x-:").find(letter) == std::string_view::npos) left += letter;
    }
    if (left == "00" || left == "oo") return "OO";
    if (left == "000" || left == "ooo") return "OOO";
    return left;
}

/// The move that reads so in squares, in algebraic form, or in algebraic form with both squares.
std::optional<Move> find_by_text(const ChessPosition& position, const std::string& text) {
    for (const Move& move : legal_moves(position)) {
        const std::string squares = move.to_string(false);
        const std::string san = bare(SanMove(position, move).san());
        if (text == squares || text == san || text == san.front() + squares) return move;
    }
    return std::nullopt;
}

}  // namespace

std::optional<Move> read_typed_move(const ChessPosition& position, std::string_view text) {
    std::string wanted = bare(text);
    if (const auto move = find_by_text(position, wanted); move || wanted.empty()) return move;
    constexpr std::string_view small = "kqrbn", capital = "KQRBN";
    const auto piece = small.find(wanted.front());
    if (piece == std::string_view::npos) return std::nullopt;
    wanted.front() = capital[piece];
    return find_by_text(position, wanted);
}

bool begins_move(char32_t character) {
    constexpr std::u32string_view beginnings = U"abcdefghkqrnoKQRBNO0";
    return beginnings.find(character) != std::u32string_view::npos;
}

}  // namespace velmora
