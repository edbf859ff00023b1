#pragma once

#include "tournament/rating.h"

namespace velmora {

/// A sequential probability ratio test: whether an engine is better by `elo1` (H1) or by `elo0` (H0), decided
/// as soon as the games tell, being wrong with the probability `alpha` where H0 holds and `beta` where H1
/// does.
///
/// In the logistic model the hypotheses are scores; in the normalized one they are scores in deviations of a
/// game, so that a test takes as long for engines that mostly draw as for others.
struct Sprt {
    enum class Model { logistic, normalized };
    enum class Decision { h0, none, h1 };

    double elo0 = 0, elo1 = 5;
    double alpha = 0.05, beta = 0.05;
    Model model = Model::logistic;

    /// elo0 < elo1, alpha and beta above 0 and together below 1. What follows REQUIRES it.
    bool is_valid() const;

    /// ln(beta / (1 - alpha)) and ln((1 - beta) / alpha), from Wald's test.
    double lower() const;
    double upper() const;

    /// The generalized log likelihood ratio of the counts; 0 for none. Outcomes that never came count as
    /// 0.001.
    ///
    /// Sources: M. Van den Bergh, "Comparing the approximations for the generalized log likelihood ratio of a
    /// multinomial distribution", Proposition 1.1 (logistic), and "Comments on normalized Elo", section 4.1
    /// (normalized; both cantate.be/Fishtest).
    double ratio(const OutcomeCounts& counts, RatingUnit unit) const;

    Decision decide(double ratio) const;
};

}  // namespace velmora
