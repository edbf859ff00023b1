#include "review/accuracy.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

namespace velmora {

namespace {

constexpr std::int32_t largest_loss = 1000;  // centipawns

/// White's view, a mate being worth the most.
std::int32_t cut(const Evaluation& evaluation) {
    if (evaluation.kind == Evaluation::Kind::white_mates) return largest_loss;
    if (evaluation.kind == Evaluation::Kind::black_mates) return -largest_loss;
    return std::clamp(evaluation.value, -largest_loss, largest_loss);
}

double standard_deviation(std::span<const double> values) {
    const auto count = static_cast<double>(values.size());
    const double mean = std::accumulate(values.begin(), values.end(), 0.0) / count;
    double squares = 0;
    for (const double value : values) squares += (value - mean) * (value - mean);
    return std::sqrt(squares / count);
}

/// White's win percentages; where an evaluation is missing, the one before it.
std::vector<double> percentages(std::span<const std::optional<Evaluation>> positions) {
    std::vector<double> result;
    result.reserve(positions.size());
    double last = win_percent(start_evaluation, Side::white);
    for (const auto& position : positions) {
        if (position) last = win_percent(*position, Side::white);
        result.push_back(last);
    }
    return result;
}

/// How much each move of the game counts.
std::vector<double> weights_of(std::span<const double> percentages) {
    const std::size_t plies = percentages.size() - 1;
    const std::size_t window = std::clamp<std::size_t>(plies / 10, 2, 8);
    std::vector<double> weights;
    weights.reserve(plies);
    for (std::size_t ply = 0; ply < plies; ++ply) {
        const std::size_t begin = ply + 2 > window ? ply + 2 - window : 0;
        weights.push_back(std::clamp(standard_deviation(percentages.subspan(begin, window)), 0.5, 12.0));
    }
    return weights;
}

}  // namespace

double win_percent(const Evaluation& evaluation, Side side) {
    const Evaluation kept{Evaluation::Kind::centipawns, cut(evaluation), Bound::exact};
    const double white = 100 * kept.expected_score();
    return side == Side::white ? white : 100 - white;
}

double move_accuracy(double before, double after) {
    if (after >= before) return 100;
    const double raw = 103.1668100711649 * std::exp(-0.04354415386753951 * (before - after));
    return std::clamp(raw - 3.166924740191411 + 1, 0.0, 100.0);
}

std::optional<Accuracy> accuracy_of(std::span<const std::optional<Evaluation>> positions, Side first,
                                    Side side) {
    if (positions.size() < 2) return std::nullopt;
    const auto white = percentages(positions);
    const auto weights = weights_of(white);
    double weighted = 0, weight = 0, reciprocals = 0, loss = 0;
    int moves = 0;
    for (std::size_t ply = side == first ? 0 : 1; ply + 1 < positions.size(); ply += 2) {
        if (!positions[ply] || !positions[ply + 1]) continue;
        const auto view = [side](double percent) { return side == Side::white ? percent : 100 - percent; };
        const double accuracy = move_accuracy(view(white[ply]), view(white[ply + 1]));
        weighted += accuracy * weights[ply];
        weight += weights[ply];
        reciprocals += 1 / std::max(1.0, accuracy);
        const int lost = cut(*positions[ply]) - cut(*positions[ply + 1]);
        loss += std::max(0, side == Side::white ? lost : -lost);
        ++moves;
    }
    if (moves == 0) return std::nullopt;
    return Accuracy{static_cast<std::int32_t>(std::lround(loss / moves)),
                    (weighted / weight + moves / reciprocals) / 2};
}

}  // namespace velmora
