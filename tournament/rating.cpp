#include "tournament/rating.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "tournament/outcome_shares.h"

namespace velmora {

namespace {

constexpr double interval_width = 1.95996;  // deviations on either side hold 95 % of the normal distribution

double elo_of(double score) { return 400 * std::log10(score / (1 - score)); }

}  // namespace

OutcomeCounts& OutcomeCounts::operator+=(const OutcomeCounts& other) {
    for (std::size_t i = 0; i < games.size(); ++i) games[i] += other.games[i];
    for (std::size_t i = 0; i < pairs.size(); ++i) pairs[i] += other.pairs[i];
    return *this;
}

OutcomeCounts OutcomeCounts::reversed() const {
    OutcomeCounts result = *this;
    std::reverse(result.games.begin(), result.games.end());
    std::reverse(result.pairs.begin(), result.pairs.end());
    return result;
}

Rating rating_of(const OutcomeCounts& counts, RatingUnit unit) {
    Rating rating;
    if (counts.total() == 0) return rating;
    const OutcomeShares games(counts, RatingUnit::game, 0);
    rating.score = static_cast<double>(counts.half_points()) / 2 / static_cast<double>(counts.total());
    rating.draw_ratio = games.shares[1];
    if (rating.score > 0 && rating.score < 1) rating.elo = elo_of(rating.score);
    const OutcomeShares units(counts, unit, 0);
    if (!(units.total > 0)) return rating;
    const auto [mean, variance] = moments(units, units.shares);
    // Beneath this it is what rounding leaves of units that all ended alike.
    constexpr double least_variance = 1e-12;
    if (variance < least_variance) return rating;
    const double error_of_mean = std::sqrt(variance / units.total);
    const double low = mean - interval_width * error_of_mean;
    const double high = mean + interval_width * error_of_mean;
    if (low > 0 && high < 1) rating.error = (elo_of(high) - elo_of(low)) / 2;
    const double game_deviation = std::sqrt(unit == RatingUnit::pair ? 2 * variance : variance);
    const double scale = 800 / std::log(10) / game_deviation;
    rating.normalized_elo = (mean - 0.5) * scale;
    rating.normalized_error = interval_width * error_of_mean * scale;
    rating.superiority = (1 + std::erf((mean - 0.5) / (std::sqrt(2) * error_of_mean))) / 2;
    return rating;
}

}  // namespace velmora
