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
///
/// The numbering fills the rank in the order bishops, queen, knights and then rook, king, rook, which
/// makes every number a legal array. It isn't the published numbering, in which the standard array is 518.
Chess960Rank chess960_rank(std::uint32_t number);

/// A number below chess960_positions, drawn by the time of day.
///
/// No two games of an evening need to be reproducible, so the clock is a good enough seed.
std::uint32_t random_chess960_number();

}  // namespace velmora
