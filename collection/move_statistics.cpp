#include "collection/move_statistics.h"

#include <algorithm>

namespace velmora {

void MoveStatistics::add(const GameColumns& game) {
    ++games;
    white_wins += game.result == GameResult::white_wins ? 1 : 0;
    black_wins += game.result == GameResult::black_wins ? 1 : 0;
    draws += game.result == GameResult::draw ? 1 : 0;
    for (const auto rating : {game.white_elo, game.black_elo}) {
        rating_sum += rating;
        rated += rating > 0 ? 1 : 0;
    }
    last_year = std::max(last_year, static_cast<std::uint16_t>(game.year()));
}

void MoveStatistics::add(const MoveStatistics& other) {
    rating_sum += other.rating_sum;
    rated += other.rated;
    games += other.games;
    white_wins += other.white_wins;
    draws += other.draws;
    black_wins += other.black_wins;
    last_year = std::max(last_year, other.last_year);
}

}  // namespace velmora
