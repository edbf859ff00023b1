#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <utility>

#include "matches/match_state.h"

namespace velmora {

/// The outcomes of the games of one engine against another, and of the pairs among them.
struct MatchCounts {
    std::array<std::uint64_t, 3> games{};  ///< losses, draws, wins
    std::array<std::uint64_t, 5> pairs{};  ///< by half points of two games: 0 to 2

    std::uint64_t total() const { return games[0] + games[1] + games[2]; }
};

/// The results of a match, counted as they come, so that a match of any length costs no more at each game.
class MatchTally {
public:
    void add(const StateGame& game);

    /// Counts of `engine` against `opponent`. Games make a pair when two of one encounter are finished.
    MatchCounts counts(std::size_t engine, std::size_t opponent) const;
    std::size_t size() const { return m_size; }

private:
    struct Meeting {
        MatchCounts counts;                         // of the engine with the lower number
        std::map<std::uint64_t, std::size_t> open;  // half points of a first game, by encounter
    };
    std::map<std::pair<std::size_t, std::size_t>, Meeting> m_meetings;  // the lower number first
    std::size_t m_size = 0;
};

/// What the results say of the difference in strength. Nothing where all units have one outcome.
struct StrengthEstimate {
    double score = 0.5;                 ///< of the games, 0 to 1
    std::optional<double> elo;          ///< none at 0 and 1
    std::optional<double> error;        ///< half of the 95 % interval, Elo
    std::optional<double> superiority;  ///< likelihood that the engine is the stronger one
    double draw_ratio = 0;
};

/// With `paired`, the unit is the pair, whose two games share an opening and so aren't independent; else the
/// game. E = -400 log10(1/s - 1); 95 % interval s +- 1.95996 sqrt(V / units); superiority
/// (1 + erf((s - 1/2) / sqrt(2 V / units))) / 2.
StrengthEstimate estimate_strength(const MatchCounts& counts, bool paired);

/// A sequential test of "elo0" against "elo1".
struct SprtSettings {
    enum class Model { logistic, normalized };
    double elo0 = 0, elo1 = 5, alpha = 0.05, beta = 0.05;
    Model model = Model::logistic;

    /// ln(beta / (1 - alpha)) and ln((1 - beta) / alpha), from Wald's test.
    double lower() const;
    double upper() const;
};

/// The generalized log likelihood ratio of the counts; 0 for none. Outcomes that never came count as 0.001.
/// Sources: M. Van den Bergh, "Comparing the approximations for the generalized log likelihood ratio of a
/// multinomial distribution", Proposition 1.1 (logistic), and "Comments on normalized Elo", section 4.1.
double log_likelihood_ratio(const MatchCounts& counts, bool paired, const SprtSettings& settings);

}  // namespace velmora
