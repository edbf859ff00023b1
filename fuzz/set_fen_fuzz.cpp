// Any text as a FEN: it is read or refused, and what is read is a position that works.

#include <cstddef>
#include <cstdint>
#include <stdexcept>

#include "fuzz/chess_checks.h"

namespace {

using namespace velmora;

bool every_right_has_its_rook(const ChessPosition& position) {
    const BoardPosition& board = position.board();
    const Bitboard rooks = (board.white_rooks() & rank_1) | ((board.black_rooks() & rank_8) >> 48);
    return (position.rights() & ~rooks.value()) == 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    ChessPosition position;
    position.set_fen(text);
    fuzzing::check_position(position);
    position.mirror_files();
    position.mirror_colours();
    fuzzing::check_position(position);

    ChessPosition strict;
    try {
        strict.fen(text);
    } catch (const std::logic_error&) {
        return 0;
    }
    ChessPosition again;
    again.fen(strict.fen());
    // A classic letter means the outermost rook, so a right without its rook may come back as another one.
    if (!every_right_has_its_rook(strict)) strict = again;
    again.fen(again.fen());
    fuzzing::require(again == strict && again.fen() == strict.fen(), "FEN written and read back", strict);
    return 0;
}
