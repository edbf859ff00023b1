#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "game/foreign/game_repair.h"

namespace velmora {

/// What a person has pasted or dropped: a position, or one or several games.
struct PastedText {
    enum class Kind { nothing, position, games };

    Kind kind = Kind::nothing;
    std::string position;            ///< a FEN or EPD line as it was pasted, that can be set up
    std::vector<ForeignGame> games;  ///< each with at least one move or one tag
    std::string fault;               ///< why it is nothing, with the place; a sentence for a person
};

/// Recognizes a FEN or EPD line by the seven slashes of its first word, and reads anything else as games:
/// with tags or without, numbered moves or bare ones ("e4 e5 Nf3"). A game that the strict reader reads whole
/// keeps its text, to the byte.
///
/// At most so many games are read, since a paste may be a file: the rest are left out.
PastedText read_pasted(std::string_view text, std::size_t most_games = 1000);

}  // namespace velmora
