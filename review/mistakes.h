#pragma once

#include <cstdint>
#include <optional>

#include "game/game_tree.h"

namespace velmora {

/// The nearest move of the main line behind a node that is marked as ?!, ? or ??; behind the last one the
/// first again. Nothing where there is none. From within a variation it is looked for behind the move that
/// the variation replaces.
std::optional<std::int32_t> mistake_after(const GameTree& tree, std::int32_t node);

/// The nearest one ahead of a node; ahead of the first one the last again.
std::optional<std::int32_t> mistake_before(const GameTree& tree, std::int32_t node);

/// The first move of the variation that shows what would have been better than a marked move: of several
/// the last, since a review puts its own behind those that are there. Nothing where the node isn't a marked
/// move of the main line or stands alone.
std::optional<std::int32_t> better_move(const GameTree& tree, std::int32_t node);

}  // namespace velmora
