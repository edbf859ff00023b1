#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "game/foreign/game_splitter.h"
#include "game/foreign/remark.h"

namespace velmora {

/// A game as the second reader has understood it.
struct ForeignGame {
    /// The game in the strict form: the strict reader, from a file or a text, loses nothing of it, and every
    /// move can be made. A line may end earlier than in the source, see the remarks.
    std::string text;
    std::vector<Remark> remarks;  ///< one a kind, in the order in which they were met
    std::size_t plies = 0;        ///< of the main line

    /// Whether anything was repaired. A game without, which only has a move that isn't legal, is as well read
    /// from its own text.
    bool is_repaired() const;
    /// Whether something could not be kept as what it is, such as the moves behind one that isn't legal.
    bool has_losses() const;
};

/// The second reader: takes games as other programs and people write them, and writes them anew in the strict
/// form.
///
/// Read are: UTF-8, and Windows-1252 where it isn't that; tags with brackets and quotes in their values, or
/// not closed; results and castling with any dash, and with zeros; figurines; promotions without their sign;
/// "e.p."; moves with both squares; signs and suffixes for glyphs; comments behind semicolons, of any length,
/// and in any place; lines that begin with "%", which are left out. A null move ends its line.
///
/// Linear in the length of the text, which one game of whatever size has. Takes any bytes and throws nothing
/// but what the memory throws.
///
/// @param text  one game; tags, moves and the result may all be missing
/// @param first_line  the number of its first line in the file, for the remarks
ForeignGame repair_game(std::string_view text, std::uint64_t first_line = 1);
/// The same of a game that was cut out of a source.
ForeignGame repair_game(const ForeignText& game);

/// Whether the strict reader loses something of a game that repair_game() keeps. `text` is one game from its
/// first bracket on, as it stands in a file or as PgnFile gives it.
///
/// Nearly all games pass in one look at each byte; where a word looks odd, the game is loaded and its moves
/// are made by the strict reader, so that what that one reads is never rewritten. A move that merely isn't
/// legal is not noticed here, since no reader can help there.
bool needs_repair(std::string_view text);

}  // namespace velmora
