#pragma once

#include <cstdint>

#include "chess/moves/position.h"

namespace velmora {

/// The key under which a collection finds a position: equal for positions in which the same pieces stand on
/// the same squares and the same moves are possible, whatever moves led there.
///
/// Not ChessPosition::key(): that one follows the letter of its sources in whether an en passant square or a
/// right to castle is told, so one position reached by two roads, or written in somebody's FEN, has several
/// keys there. Here a right counts while its king and rook stand, and the en passant square when the capture
/// is legal (the laws of chess, 9.2.3, tell sameness so). The counters don't count.
///
/// All bits are mixed by a bijection (the finishing steps of MurmurHash3, Appleby), so that any part of the
/// key spreads as evenly as the whole and files may be cut by its leading bits.
std::uint64_t position_key(const ChessPosition& position);

}  // namespace velmora
