#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tournament/tournament_data.h"

namespace velmora {

/// Points counted in halves, so that they stay whole numbers: "2.5".
std::string points_text(std::uint64_t halves);

/// The score of two participants against each other, that of the first one first: "1.5 - 0.5". Games without
/// a result count for nobody. "-" for any other number of participants, where two numbers would say
/// nothing.
std::string score_of_two(const std::vector<TournamentParticipant>& participants,
                         const std::vector<TournamentGame>& games);

}  // namespace velmora
