#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "game/foreign/remark.h"
#include "game/game_tags.h"

namespace velmora {

/// Whether a line, blanks ahead of it left out, begins with a tag: a bracket, a name, blanks and a value.
bool begins_with_tag(std::string_view line);

/// Whether the strict cutter, to which the first closing bracket ends a tag, would take what follows in the
/// value for moves.
bool holds_moves(std::string_view value);

/// What stands ahead of the moves of a foreign game.
struct ForeignHeader {
    GameTags tags;                ///< the roster's are there in any case
    std::string comment;          ///< all comments between the tags, in one line each
    bool has_tags = false;        ///< any tag stood there
    std::size_t moves_begin = 0;  ///< where the movetext begins, in bytes
};

/// Reads the tags at the begin of a game in UTF-8, with whatever stands between their quotes: a value ends at
/// the quote and the bracket behind which the line ends or the next tag begins.
ForeignHeader read_foreign_header(std::string_view text, RemarkList& remarks);

}  // namespace velmora
