#pragma once

#include <cstdint>
#include <vector>

#include "collection/collection_index.h"
#include "collection/filter_line.h"

namespace velmora {

/// For each game of a collection 1 when it meets all conditions of a filter, else 0.
///
/// Texts are compared once each, not once a game: a walk over the table of texts tells which numbers fit, a
/// walk over the games then only looks numbers up.
std::vector<std::uint8_t> fitting_games(const CollectionIndex& collection, const FilterLine& filter);

}  // namespace velmora
