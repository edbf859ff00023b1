#include "analysis/san_line.h"

#include <algorithm>
#include <optional>
#include <stdexcept>

#include "chess/moves/legal_moves.h"
#include "chess/notation/san_reader.h"
#include "chess/notation/san_writer.h"

namespace velmora {

namespace {

bool is_square(std::string_view text) {
    return text[0] >= 'a' && text[0] <= 'h' && text[1] >= '1' && text[1] <= '8';
}

bool is_in_coordinates(std::string_view word) {
    return (word.size() == 4 || word.size() == 5) && is_square(word) && is_square(word.substr(2));
}

std::optional<Move> legal_move(const ChessPosition& position, std::string_view word) {
    try {
        return find_legal(
            position, is_in_coordinates(word) ? position.convert_to_move(word) : read_san(position, word));
    } catch (const std::logic_error&) {
        return std::nullopt;
    }
}

}  // namespace

std::vector<LineMove> read_line(const ChessPosition& start, std::span<const std::string> words,
                                std::size_t limit) {
    std::vector<LineMove> line;
    line.reserve(std::min(limit, words.size()));
    ChessPosition position = start;
    for (const std::string& word : words) {
        if (line.size() == limit) break;
        const auto move = legal_move(position, word);
        if (!move) break;
        line.push_back({write_san(position, *move), *move});
        position.do_move(*move);
    }
    return line;
}

ChessPosition position_behind(const ChessPosition& start, std::span<const LineMove> line, std::size_t count) {
    ChessPosition position = start;
    for (const LineMove& step : line.first(std::min(count, line.size()))) position.do_move(step.move);
    return position;
}

}  // namespace velmora
