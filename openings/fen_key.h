#pragma once

#include <cstdint>
#include <string_view>

namespace velmora {

/// The Polyglot key of a FEN, by the rules of the book format alone: only the first four fields are read,
/// nothing is checked, and squares off the board count for nothing. For classic positions it is the key of
/// the position itself.
///
/// Apart from ChessPosition, because a book may be asked for a position that this program would refuse,
/// and because a lookup by FEN needs neither moves nor history. The rights are those of the four classic
/// letters, the only ones that the format knows.
std::uint64_t fen_key(std::string_view fen);

}  // namespace velmora
