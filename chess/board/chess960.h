#pragma once

#include <array>
#include <cstdint>

#include "chess/board/piece.h"

namespace velmora {

inline constexpr std::uint32_t chess960_positions = 960;

/// The pieces of a back rank, a-file first.
using Chess960Rank = std::array<PieceKind, 8>;

/// The back rank of a start position by this program's own numbering, in which 385 is the standard array.
/// REQUIRES: number < chess960_positions.
Chess960Rank chess960_rank(std::uint32_t number);

/// A number below chess960_positions, drawn by the time of day.
std::uint32_t random_chess960_number();

}  // namespace velmora
