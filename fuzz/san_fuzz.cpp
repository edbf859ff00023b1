// A FEN, then a line a SAN move: what is read is written, read back, and made when it is legal.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>

#include "chess/notation/san_move.h"
#include "fuzz/chess_checks.h"

namespace {

using namespace velmora;

/// Reads the text; whatever it gives can be written again.
std::optional<Move> read_and_write(const ChessPosition& position, std::string_view text) {
    try {
        const SanMove read(position, text);
        SanMove(position, Move(read));
        return read;
    } catch (const std::logic_error&) {
        return std::nullopt;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view input(reinterpret_cast<const char*>(data), size);
    ChessPosition position = fuzzing::take_position(input);
    while (!input.empty()) {
        const std::optional<Move> read = read_and_write(position, fuzzing::take_line(input));
        if (!read) continue;
        if (const std::optional<Move> legal = find_legal(position, *read)) position.do_move(*legal);
    }
    fuzzing::check_position(position);
    for (const Move& move : legal_moves(position)) {
        const std::string san = SanMove(position, move).san();
        const SanMove again(position, std::string_view(san));
        fuzzing::require(again.same_move(move), "SAN " + san, position);
    }
    return 0;
}
