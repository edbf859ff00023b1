// What the statistics of a match cost, and how often sequential tests are wrong.
//
// A million results are counted, rated and tested once. Then matches of known strength are simulated, 10,000
// for each hypothesis and model, and the share of wrong decisions is printed beside what the test promises.

#include <array>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <random>
#include <string_view>
#include <vector>

#include "tournament/sprt.h"
#include "tournament/standings.h"

namespace {

using namespace velmora;
using Clock = std::chrono::steady_clock;

double ms_since(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

void count_a_million() {
    constexpr std::size_t games = 1'000'000;
    constexpr std::array<std::string_view, 3> results{"1-0", "1/2-1/2", "0-1"};
    std::mt19937 random(1);
    std::vector<std::uint8_t> outcomes(games);
    for (auto& outcome : outcomes) outcome = static_cast<std::uint8_t>(random() % 3);
    for (int round = 0; round < 5; ++round) {
        const auto start = Clock::now();
        Standings standings(2);
        for (std::size_t i = 0; i < games; ++i) standings.add(i % 2, 1 - i % 2, results[outcomes[i]], i / 2);
        const auto counts = standings.against(0, 1);
        const auto rating = rating_of(counts, RatingUnit::pair);
        const double ratio = Sprt{0, 5, 0.05, 0.05, Sprt::Model::normalized}.ratio(counts, RatingUnit::pair);
        const double counted = ms_since(start);
        std::printf("1,000,000 results counted, rated and tested: %.2f ms (Elo %.2f, llr %.2f)\n", counted,
                    rating.elo.value_or(0), ratio);
    }
}

/// Shares of the five outcomes of a pair with the mean that the model's Elo asks for: drawn pairs are
/// frequent, and strength moves weight from each outcome to the next better one.
std::array<double, 5> shares_of(double elo, Sprt::Model model) {
    constexpr std::array<double, 5> even{0.05, 0.20, 0.50, 0.20, 0.05};
    const auto moved = [&](double weight) {
        auto shares = even;
        for (std::size_t i = 0; i < 4; ++i) {
            shares[i] -= weight * even[i];
            shares[i + 1] += weight * even[i];
        }
        return shares;
    };
    const auto excess = [&](const std::array<double, 5>& shares) {
        double mean = 0, variance = 0;
        for (std::size_t i = 0; i < 5; ++i) mean += shares[i] * static_cast<double>(i) / 4;
        for (std::size_t i = 0; i < 5; ++i) {
            variance += shares[i] * std::pow(static_cast<double>(i) / 4 - mean, 2);
        }
        const double aim = model == Sprt::Model::logistic
                               ? 1 / (1 + std::pow(10, -elo / 400)) - 0.5
                               : elo * std::log(10) / 800 * std::sqrt(2 * variance);
        return mean - 0.5 - aim;
    };
    double low = 0, high = 1;
    for (int i = 0; i < 60; ++i) {
        const double middle = (low + high) / 2;
        (excess(moved(middle)) < 0 ? low : high) = middle;
    }
    return moved(low);
}

void simulate(const Sprt& sprt, double elo, Sprt::Decision wrong, const char* name) {
    constexpr int tests = 10'000;
    constexpr int pairs_between_looks = 10;
    const auto shares = shares_of(elo, sprt.model);
    std::discrete_distribution<std::size_t> outcome(shares.begin(), shares.end());
    std::mt19937_64 random(2);
    int errors = 0;
    std::uint64_t pairs = 0;
    for (int test = 0; test < tests; ++test) {
        OutcomeCounts counts;
        auto decision = Sprt::Decision::none;
        while (decision == Sprt::Decision::none) {
            for (int i = 0; i < pairs_between_looks; ++i) ++counts.pairs[outcome(random)];
            pairs += pairs_between_looks;
            decision = sprt.decide(sprt.ratio(counts, RatingUnit::pair));
        }
        errors += decision == wrong ? 1 : 0;
    }
    std::printf("%s: %.2f %% wrong of %d tests, %.0f games on average\n", name, 100.0 * errors / tests, tests,
                2.0 * static_cast<double>(pairs) / tests);
}

}  // namespace

int main() {
    count_a_million();
    for (const auto model : {Sprt::Model::logistic, Sprt::Model::normalized}) {
        const Sprt sprt{0, 20, 0.05, 0.05, model};
        const bool logistic = model == Sprt::Model::logistic;
        simulate(sprt, sprt.elo0, Sprt::Decision::h1, logistic ? "logistic, H0 true" : "normalized, H0 true");
        simulate(sprt, sprt.elo1, Sprt::Decision::h0, logistic ? "logistic, H1 true" : "normalized, H1 true");
    }
}
