#include "tournament/score.h"

#include <array>
#include <cstddef>

namespace velmora {

namespace {

/// Points are counted in halves, so that they stay whole numbers.
struct HalfPoints {
    unsigned white, black;
};

HalfPoints half_points(const std::string& result) {
    if (result == "1-0") return {2, 0};
    if (result == "0-1") return {0, 2};
    if (result == "1/2-1/2") return {1, 1};
    return {0, 0};
}

}  // namespace

std::string points_text(std::uint64_t halves) {
    return std::to_string(halves / 2) + (halves % 2 == 0 ? "" : ".5");
}

std::string score_of_two(const std::vector<TournamentParticipant>& participants,
                         const std::vector<TournamentGame>& games) {
    if (participants.size() != 2) return "-";
    std::array<std::uint64_t, 2> halves{};
    for (const TournamentGame& game : games) {
        const HalfPoints points = half_points(game.result);
        const std::size_t white = game.white.id == participants[0].id ? 0 : 1;
        halves[white] += points.white;
        halves[1 - white] += points.black;
    }
    return points_text(halves[0]) + " - " + points_text(halves[1]);
}

}  // namespace velmora
