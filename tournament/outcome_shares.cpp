#include "tournament/outcome_shares.h"

#include <algorithm>

namespace velmora {

OutcomeShares::OutcomeShares(const OutcomeCounts& counts, RatingUnit unit, double least) {
    const auto take = [this, least](const auto& numbers) {
        for (const auto count : numbers) shares.push_back(std::max(static_cast<double>(count), least));
    };
    if (unit == RatingUnit::pair) {
        take(counts.pairs);
    } else {
        take(counts.games);
    }
    for (const double count : shares) total += count;
    if (!(total > 0)) return;
    for (double& share : shares) share /= total;
}

Moments moments(const OutcomeShares& scores, const std::vector<double>& shares) {
    Moments result;
    for (std::size_t i = 0; i < shares.size(); ++i) result.mean += shares[i] * scores.score(i);
    for (std::size_t i = 0; i < shares.size(); ++i) {
        const double deviation = scores.score(i) - result.mean;
        result.variance += shares[i] * deviation * deviation;
    }
    return result;
}

}  // namespace velmora
