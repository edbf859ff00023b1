#include "manager/game_line.h"

#include <stdexcept>
#include <string>

#include "base/text.h"
#include "game/game_result.h"

namespace velmora {

ChessPosition read_game_line(std::string_view line) {
    constexpr std::string_view moves_word = " moves";
    const auto end_of_fen = line.find(moves_word);
    ChessPosition position;
    position.set_fen(std::string(line.substr(0, end_of_fen)));
    if (end_of_fen == std::string_view::npos) return position;
    text::WordReader reader(line.substr(end_of_fen + moves_word.size()));
    for (auto word = reader.word(); !word.empty(); word = reader.word()) {
        if (!play_if_legal(position, parse_move(position, word))) {
            throw std::logic_error("illegal move " + std::string(word));
        }
    }
    return position;
}

}  // namespace velmora
