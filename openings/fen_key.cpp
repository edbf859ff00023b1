#include "openings/fen_key.h"

#include <cstddef>

#include "base/text.h"
#include "chess/board/random64.h"

namespace velmora {

namespace {

/// The pieces in the order of the book's numbers.
constexpr std::string_view kinds = "pPnNbBrRqQkK";
constexpr std::string_view castling_letters = "KQkq";

std::uint64_t board_key(std::string_view board) {
    std::uint64_t key = 0;
    int square = 56;  // a8, where the text begins
    for (const char c : board) {
        if (c == '/') {
            square -= 16;
        } else if (c >= '0' && c <= '9') {
            square += c - '0';
        } else if (const auto kind = kinds.find(c); kind != std::string_view::npos) {
            if (square >= 0 && square < 64) key ^= random64[64 * kind + static_cast<std::size_t>(square)];
            ++square;
        }
    }
    return key;
}

}  // namespace

std::uint64_t fen_key(std::string_view fen) {
    text::WordReader fields(fen);
    auto key = board_key(fields.word());
    if (fields.word() == "w") key ^= random64[random64_turn];
    for (const char c : fields.word()) {
        const auto right = castling_letters.find(c);
        if (right != std::string_view::npos) key ^= random64[random64_castle + right];
    }
    const auto en_passant = fields.word();
    if (!en_passant.empty() && en_passant.front() >= 'a' && en_passant.front() <= 'h') {
        key ^= random64[random64_en_passant + static_cast<std::size_t>(en_passant.front() - 'a')];
    }
    return key;
}

}  // namespace velmora
