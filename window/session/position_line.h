#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace velmora {

/// The first four fields of a FEN or EPD line: placement, side, castling, en passant.
std::vector<std::string_view> first_fields(std::string_view line);

/// Whether the first four fields of a FEN or EPD line can be a position: side, castling, en passant and ranks
/// of eight squares. Rules of the game, such as the number of kings, aren't asked.
/// That is on purpose: a problem or a lesson may break them, with nine pawns for instance.
bool is_position_line(std::string_view line);

/// The operations of an EPD line that name a tag of the roster, as tag and value. An opcode counts in upper
/// and lower case; "id" names the event. Quotes are cut.
/// The PGN standard names the operations of EPD, among them "id", and none for the roster; files that have
/// them write the tag's own name.
std::vector<std::pair<std::string, std::string>> roster_tags(std::string_view line);

/// The operations of an EPD line as they stand, empty when there are none. The two counters of a FEN are
/// none.
std::string_view epd_operations(std::string_view line);

}  // namespace velmora
