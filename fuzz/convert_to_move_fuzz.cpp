// A FEN, then a line a move: legal moves are made; what is only pseudo-legal is made on a copy and must do no
// harm.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>

#include "fuzz/chess_checks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmora;
    std::string_view input(reinterpret_cast<const char*>(data), size);
    ChessPosition position = fuzzing::take_position(input);
    ChessPosition wild(position);
    while (!input.empty()) {
        const std::string_view line = fuzzing::take_line(input);
        try {
            wild.do_move(wild.convert_to_move(line));
            wild.is_mate();
            wild.maps();
        } catch (const std::logic_error&) {
            wild.undo_move();
        }
        try {
            const Move move = position.convert_to_move(line);
            const std::optional<Move> legal = find_legal(position, move);
            fuzzing::require(!legal || *legal == move, "check bit of a legal move", position);
            if (legal) position.do_move(*legal);
        } catch (const std::logic_error&) {
            continue;
        }
    }
    fuzzing::check_position(position);
    return 0;
}
