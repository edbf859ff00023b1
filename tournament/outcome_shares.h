#pragma once

#include <cstddef>
#include <vector>

#include "tournament/rating.h"

namespace velmora {

/// Outcomes of one kind of unit as a distribution: three of a game, five of a pair, their scores evenly from
/// 0 to 1.
struct OutcomeShares {
    std::vector<double> shares;  ///< by half points; their sum is 1, unless total is 0
    double total = 0;            ///< units

    /// @param least  what an outcome that came less often counts as
    OutcomeShares(const OutcomeCounts& counts, RatingUnit unit, double least);

    double score(std::size_t i) const {
        return static_cast<double>(i) / static_cast<double>(shares.size() - 1);
    }
};

/// Mean and variance of the scores under a distribution.
struct Moments {
    double mean = 0, variance = 0;
};
Moments moments(const OutcomeShares& scores, const std::vector<double>& shares);

}  // namespace velmora
