#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "tournament/tournament_data.h"

/// The three kinds of schedule as functions of the participants and the rounds, results being all "*".
///
/// REQUIRES everywhere: at least two participants, with the ids 1 to their number in order.
/// All throw std::length_error for more than `most_games` games, before memory runs out.
///
/// Functions and no class, since a schedule is made at once and kept as a list: so the file of a
/// tournament can be read and changed without the rules by which it was made, and rules may change without
/// touching tournaments that run.
namespace velmora::pairings {

/// The longest schedule that is made: a match of the most rounds that a match can have.
constexpr std::size_t most_games = 1'000'000;

/// The first two participants against each other; the second has White in the first game, and colours
/// change with every game. Rounds below 1 mean 1, rounds above 1,000,000 mean 2.
///
/// Colours change so that the first move's advantage evens out over a match.
std::vector<TournamentGame> match(const std::vector<TournamentParticipant>& participants,
                                  std::int32_t rounds);

/// The first participant against each other one, `rounds` games each (limited as in a match), the opponent
/// having White first. The round is the opponent's index, the sub-round the game against it.
std::vector<TournamentGame> gauntlet(const std::vector<TournamentParticipant>& participants,
                                     std::int32_t rounds);

/// All against all by the circle method, `rounds` cycles with colours changing from cycle to cycle; no games
/// for rounds below 1. The round is the cycle, the sub-round runs through it. A cycle has one turn less than
/// there are participants also when their number is odd, so that then one turn of pairings is left out, and
/// the next cycle goes on where the last one stopped.
///
/// The circle method: participants sit in two rows, who face each other play, and all but one move on by a
/// seat after each turn.
std::vector<TournamentGame> round_robin(const std::vector<TournamentParticipant>& participants,
                                        std::int32_t rounds);

}  // namespace velmora::pairings
