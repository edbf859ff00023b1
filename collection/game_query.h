#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

#include "chess/moves/position.h"
#include "collection/collection_index.h"
#include "collection/filter_line.h"

namespace velmora {

/// By what a list of games is sorted.
enum class GameOrder {
    number,
    white,
    white_elo,
    black,
    black_elo,
    event,
    site,
    date,
    round,
    result,
    eco,
    opening,
    moves
};

/// Which games of a collection a list shows, and in which order: their numbers, from which a view fetches the
/// rows that it draws.
///
/// Filter, position and order are set one by one as the user changes them, and what the others have found is
/// kept; so a key typed into the filter costs one walk over the columns. Follows its collection, also over a
/// refresh(). Belongs to the collection's thread.
class GameQuery {
public:
    /// REQUIRES: the collection outlives the query.
    explicit GameQuery(const CollectionIndex& collection) : m_collection(collection) {}

    void set_filter(FilterLine filter);
    /// Only games through this position; nothing for all.
    void set_position(const std::optional<ChessPosition>& position);

    enum class Direction { ascending, descending };
    /// Games that are equal in it stay in the order of the file, in either direction.
    void set_order(GameOrder order, Direction direction);

    /// The numbers of the games. Valid until anything is set or the collection is refreshed.
    const std::vector<std::uint32_t>& games();

private:
    void follow_collection();
    const std::vector<std::uint32_t>& sorted_games();
    std::vector<std::uint32_t> sort_keys(GameOrder order) const;

    const CollectionIndex& m_collection;
    FilterLine m_filter;
    std::optional<ChessPosition> m_position;
    GameOrder m_order = GameOrder::number;
    Direction m_direction = Direction::ascending;

    const GameColumns* m_seen = nullptr;  // where the collection's columns were, to notice a refresh
    std::size_t m_seen_games = 0;
    std::optional<std::vector<std::uint8_t>> m_fitting;   // by number; nothing when it has to be made anew
    std::optional<std::vector<std::uint32_t>> m_through;  // the games through m_position
    std::optional<std::vector<std::uint32_t>> m_sorted;   // all games in order
    std::optional<std::vector<std::uint32_t>> m_games;
};

}  // namespace velmora
