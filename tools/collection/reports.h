#pragma once

#include <ostream>
#include <span>

#include "chess/moves/position.h"
#include "collection/collection_index.h"

namespace velmora {

/// What a collection holds: games, results, years, and which games are indexed in part.
void print_summary(std::ostream& out, const CollectionIndex& collection);

/// What was played from a position, as a table for people or as one JSON object.
void print_moves(std::ostream& out, const CollectionIndex& collection, const ChessPosition& position);
void print_moves_as_json(std::ostream& out, const CollectionIndex& collection, const ChessPosition& position);

/// Games as rows of words between tabulators, below a row with the columns' names; or their texts with an
/// empty line between.
void print_rows(std::ostream& out, const CollectionIndex& collection, std::span<const std::uint32_t> games);
void print_games(std::ostream& out, const CollectionIndex& collection, std::span<const std::uint32_t> games);

}  // namespace velmora
