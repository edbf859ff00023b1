#pragma once

#include <cstdint>

#include "chess/moves/position.h"

namespace velmora {

/// What happens at the last ply of a count: the length of the list is taken, or every move is made and taken
/// back.
///
/// Counted is the usual measure, as published tables have it, and much faster; made also drives making and
/// taking back at the last ply, where nearly all moves are.
enum class Leaves { counted, made };

/// The number of sequences of `depth` legal moves; 1 for depth 0. The position is the same afterwards.
///
/// The counts of well-known positions are published, so an equal count is the strongest single test of a
/// generator: one wrong move anywhere in millions changes it.
template <Leaves leaves = Leaves::counted>
std::uint64_t perft(ChessPosition& position, int depth);

extern template std::uint64_t perft<Leaves::counted>(ChessPosition&, int);
extern template std::uint64_t perft<Leaves::made>(ChessPosition&, int);

}  // namespace velmora
