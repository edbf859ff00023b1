#pragma once

#include <cstdint>
#include <string_view>

namespace velmora {

/// The Polyglot key of a FEN, by the rules of the book format alone: only the first four fields are read,
/// nothing is checked, and squares off the board count for nothing. For classic positions it is the key of
/// the position itself.
std::uint64_t fen_key(std::string_view fen);

}  // namespace velmora
