#include "tournament/sprt.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

#include "tournament/outcome_shares.h"

namespace velmora {

namespace {

using Shares = std::vector<double>;

double expected_score(double elo) { return 1 / (1 + std::pow(10, -elo / 400)); }

/// The distribution of greatest likelihood under which `f` has the mean 0: p_i / (1 + theta f_i), theta the
/// root of a function that falls from +infinity to -infinity between the two poles.
Shares tilted(const Shares& shares, const std::vector<double>& f) {
    double low = -1 / *std::max_element(f.begin(), f.end());
    double high = -1 / *std::min_element(f.begin(), f.end());
    constexpr int halvings = 60;  // more than a double has bits
    for (int i = 0; i < halvings; ++i) {
        const double theta = (low + high) / 2;
        double sum = 0;
        for (std::size_t k = 0; k < f.size(); ++k) sum += shares[k] * f[k] / (1 + theta * f[k]);
        (sum > 0 ? low : high) = theta;
    }
    Shares result(f.size());
    for (std::size_t k = 0; k < f.size(); ++k) result[k] = shares[k] / (1 + (low + high) / 2 * f[k]);
    return result;
}

Shares logistic(const OutcomeShares& seen, double elo) {
    std::vector<double> f;
    for (std::size_t i = 0; i < seen.shares.size(); ++i) f.push_back(seen.score(i) - expected_score(elo));
    return tilted(seen.shares, f);
}

Shares normalized(const OutcomeShares& seen, double elo, RatingUnit unit) {
    constexpr int most_rounds = 10;
    constexpr double close_enough = 0.0001;
    const double t = elo * std::log(10) / 800 * (unit == RatingUnit::pair ? std::sqrt(2) : 1);
    Shares p(seen.shares.size(), 1.0 / static_cast<double>(seen.shares.size()));
    for (int round = 0; round < most_rounds; ++round) {
        const auto [mean, variance] = moments(seen, p);
        const double sigma = std::sqrt(variance);
        std::vector<double> f;
        for (std::size_t i = 0; i < p.size(); ++i) {
            const double deviation = (seen.score(i) - mean) / sigma;
            f.push_back(seen.score(i) - 0.5 - t * sigma / 2 * (1 + deviation * deviation));
        }
        const auto before = std::exchange(p, tilted(seen.shares, f));
        double change = 0;
        for (std::size_t i = 0; i < p.size(); ++i) change = std::max(change, std::abs(p[i] - before[i]));
        if (change < close_enough) break;
    }
    return p;
}

}  // namespace

bool Sprt::is_valid() const { return elo0 < elo1 && alpha > 0 && beta > 0 && alpha + beta < 1; }

double Sprt::lower() const { return std::log(beta / (1 - alpha)); }
double Sprt::upper() const { return std::log((1 - beta) / alpha); }

double Sprt::ratio(const OutcomeCounts& counts, RatingUnit unit) const {
    constexpr double never = 0.001;
    if (!(OutcomeShares(counts, unit, 0).total > 0)) return 0;
    const OutcomeShares seen(counts, unit, never);
    const auto under = [&](double elo) {
        return model == Model::logistic ? logistic(seen, elo) : normalized(seen, elo, unit);
    };
    const Shares p0 = under(elo0);
    const Shares p1 = under(elo1);
    double sum = 0;
    for (std::size_t i = 0; i < p0.size(); ++i) sum += seen.shares[i] * std::log(p1[i] / p0[i]);
    return seen.total * sum;
}

Sprt::Decision Sprt::decide(double ratio) const {
    if (ratio >= upper()) return Decision::h1;
    return ratio <= lower() ? Decision::h0 : Decision::none;
}

}  // namespace velmora
