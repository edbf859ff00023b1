#include "openings/fen_key.h"

#include <cstddef>

#include "base/text.h"
#include "chess/board/placement.h"
#include "chess/board/random64.h"

namespace velmora {

namespace {

constexpr std::string_view castling_letters = "KQkq";

std::uint64_t board_key(std::string_view board) {
    std::uint64_t key = 0;
    // Here nine squares may be empty in a row.
    for (PlacementReader reader(board, '9'); !reader.at_end();) {
        const Square square = reader.square();
        if (reader.read() == PlacementReader::Step::piece && square.on_board()) {
            key ^= random64[random64_piece(reader.piece(), square)];
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
