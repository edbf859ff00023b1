#pragma once

#include <array>
#include <cstdint>
#include <optional>

namespace velmora {

/// The outcomes of the games of one engine, and of the pairs among them: two games of one opening with
/// reversed colours.
struct OutcomeCounts {
    std::array<std::uint64_t, 3> games{};  ///< losses, draws, wins
    std::array<std::uint64_t, 5> pairs{};  ///< by half points of both games: 0 to 4

    std::uint64_t losses() const { return games[0]; }
    std::uint64_t draws() const { return games[1]; }
    std::uint64_t wins() const { return games[2]; }
    std::uint64_t total() const { return games[0] + games[1] + games[2]; }
    std::uint64_t half_points() const { return games[1] + 2 * games[2]; }

    OutcomeCounts& operator+=(const OutcomeCounts& other);
    /// The same games as the opponent sees them.
    OutcomeCounts reversed() const;
};

/// What counts as one trial: the two games of a pair share an opening, so they aren't independent.
enum class RatingUnit { game, pair };

/// What results say of a difference in strength. A value that they don't bear is missing: the difference
/// itself at a score of 0 or 1, all that needs a spread where every unit ended alike.
struct Rating {
    double score = 0.5;                      ///< of the games, 0 to 1
    double draw_ratio = 0;                   ///< of the games, 0 to 1
    std::optional<double> elo;               ///< -400 log10(1/score - 1)
    std::optional<double> error;             ///< half of elo's 95 % interval
    std::optional<double> normalized_elo;    ///< (score - 1/2) / sigma of a game * 800 / ln 10
    std::optional<double> normalized_error;  ///< half of its 95 % interval
    std::optional<double> superiority;       ///< likelihood of being the stronger one, 0 to 1
};

/// With the mean s of the units and their variance V around it: the 95 % interval is s +- 1.95996
/// sqrt(V / units), superiority (1 + erf((s - 1/2) / sqrt(2 V / units))) / 2. The deviation of a game is
/// sqrt(V) where games are the units and sqrt(2 V) where pairs are (M. Van den Bergh, "Normalized Elo",
/// cantate.be/Fishtest).
Rating rating_of(const OutcomeCounts& counts, RatingUnit unit);

}  // namespace velmora
