#include "matches/match_statistics.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace velmora {

namespace {

/// Outcomes of a unit: their scores, evenly from 0 to 1, and how often each came.
struct Distribution {
    std::vector<double> share;
    double total = 0;

    double score(std::size_t i) const {
        return static_cast<double>(i) / static_cast<double>(share.size() - 1);
    }
};

template <std::size_t n>
Distribution distribution_of(const std::array<std::uint64_t, n>& counts, double least) {
    Distribution result;
    for (const auto count : counts) result.share.push_back(std::max(static_cast<double>(count), least));
    for (const double count : result.share) result.total += count;
    for (double& share : result.share) share /= result.total;
    return result;
}

Distribution distribution_of(const MatchCounts& counts, bool paired, double least) {
    return paired ? distribution_of(counts.pairs, least) : distribution_of(counts.games, least);
}

struct Moments {
    double mean = 0, variance = 0;
};

Moments moments(const Distribution& scores, const std::vector<double>& shares) {
    Moments result;
    for (std::size_t i = 0; i < shares.size(); ++i) result.mean += shares[i] * scores.score(i);
    for (std::size_t i = 0; i < shares.size(); ++i) {
        result.variance += shares[i] * std::pow(scores.score(i) - result.mean, 2);
    }
    return result;
}

double expected_score(double elo) { return 1 / (1 + std::pow(10, -elo / 400)); }
double elo_of(double score) { return 400 * std::log10(score / (1 - score)); }

/// The distribution of greatest likelihood under which `f` has the mean 0: p_i / (1 + theta f_i), theta the
/// root of a function that falls from +infinity to -infinity between the two poles.
std::vector<double> tilted(const std::vector<double>& shares, const std::vector<double>& f) {
    double low = -1 / *std::max_element(f.begin(), f.end());
    double high = -1 / *std::min_element(f.begin(), f.end());
    constexpr int halvings = 100;  // more than a double has bits
    for (int i = 0; i < halvings; ++i) {
        const double theta = (low + high) / 2;
        double sum = 0;
        for (std::size_t k = 0; k < f.size(); ++k) sum += shares[k] * f[k] / (1 + theta * f[k]);
        (sum > 0 ? low : high) = theta;
    }
    std::vector<double> result(f.size());
    for (std::size_t k = 0; k < f.size(); ++k) result[k] = shares[k] / (1 + (low + high) / 2 * f[k]);
    return result;
}

std::vector<double> logistic(const Distribution& seen, double elo) {
    std::vector<double> f;
    for (std::size_t i = 0; i < seen.share.size(); ++i) f.push_back(seen.score(i) - expected_score(elo));
    return tilted(seen.share, f);
}

std::vector<double> normalized(const Distribution& seen, double elo, bool paired) {
    constexpr int most_rounds = 10;
    constexpr double close_enough = 0.0001;
    const double t = elo * std::log(10) / 800 * (paired ? std::sqrt(2) : 1);
    std::vector<double> p(seen.share.size(), 1.0 / static_cast<double>(seen.share.size()));
    for (int round = 0; round < most_rounds; ++round) {
        const auto [mean, variance] = moments(seen, p);
        const double sigma = std::sqrt(variance);
        std::vector<double> f;
        for (std::size_t i = 0; i < p.size(); ++i) {
            const double deviation = (seen.score(i) - mean) / sigma;
            f.push_back(seen.score(i) - 0.5 - t * sigma / 2 * (1 + deviation * deviation));
        }
        const auto before = std::exchange(p, tilted(seen.share, f));
        double change = 0;
        for (std::size_t i = 0; i < p.size(); ++i) change = std::max(change, std::abs(p[i] - before[i]));
        if (change < close_enough) break;
    }
    return p;
}

}  // namespace

void MatchTally::add(const StateGame& game) {
    ++m_size;
    auto& meeting = m_meetings[std::minmax(game.white, game.black)];
    const bool is_white = game.white < game.black;
    const bool drawn = game.result == "1/2-1/2";
    const std::size_t half_points = drawn ? 1 : (game.result == "1-0") == is_white ? 2 : 0;
    ++meeting.counts.games[half_points];
    const auto [first, is_first] = meeting.open.try_emplace(game.encounter, half_points);
    if (is_first) return;
    ++meeting.counts.pairs[first->second + half_points];
    meeting.open.erase(first);
}

MatchCounts MatchTally::counts(std::size_t engine, std::size_t opponent) const {
    const auto found = m_meetings.find(std::minmax(engine, opponent));
    if (found == m_meetings.end()) return {};
    MatchCounts counts = found->second.counts;
    if (engine > opponent) {
        std::reverse(counts.games.begin(), counts.games.end());
        std::reverse(counts.pairs.begin(), counts.pairs.end());
    }
    return counts;
}

StrengthEstimate estimate_strength(const MatchCounts& counts, bool paired) {
    StrengthEstimate result;
    if (counts.total() == 0) return result;
    const auto games = distribution_of(counts.games, 0);
    result.score = moments(games, games.share).mean;
    result.draw_ratio = games.share[1];
    if (result.score > 0 && result.score < 1) result.elo = elo_of(result.score);
    const auto units = distribution_of(counts, paired, 0);
    if (!(units.total > 0)) return result;
    const auto [mean, variance] = moments(units, units.share);
    if (!(variance > 0)) return result;
    const double deviation = std::sqrt(variance / units.total);
    constexpr double width = 1.95996;  // of the 95 % interval of the normal distribution
    const double low = mean - width * deviation;
    const double high = mean + width * deviation;
    if (low > 0 && high < 1) result.error = (elo_of(high) - elo_of(low)) / 2;
    result.superiority = (1 + std::erf((mean - 0.5) / (std::sqrt(2) * deviation))) / 2;
    return result;
}

double SprtSettings::lower() const { return std::log(beta / (1 - alpha)); }
double SprtSettings::upper() const { return std::log((1 - beta) / alpha); }

double log_likelihood_ratio(const MatchCounts& counts, bool paired, const SprtSettings& settings) {
    constexpr double never = 0.001;
    const auto any = distribution_of(counts, paired, 0).total;
    if (!(any > 0)) return 0;
    const auto seen = distribution_of(counts, paired, never);
    const auto under = [&](double elo) {
        return settings.model == SprtSettings::Model::logistic ? logistic(seen, elo)
                                                               : normalized(seen, elo, paired);
    };
    const auto p0 = under(settings.elo0);
    const auto p1 = under(settings.elo1);
    double sum = 0;
    for (std::size_t i = 0; i < p0.size(); ++i) sum += seen.share[i] * std::log(p1[i] / p0[i]);
    return seen.total * sum;
}

}  // namespace velmora
