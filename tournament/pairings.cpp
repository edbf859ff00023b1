#include "tournament/pairings.h"

#include <deque>
#include <stdexcept>
#include <string>

namespace velmora::pairings {
namespace {

using Participants = std::vector<TournamentParticipant>;

constexpr std::int32_t bye = 0;  // stands for a participant id in the circle of an odd number

std::int32_t limited(std::int32_t rounds) {
    constexpr std::int32_t most_rounds = 1'000'000;
    if (rounds <= 0) return 1;
    return rounds > most_rounds ? 2 : rounds;
}

/// By division, since the product could overflow.
void check_length(std::size_t rounds, std::size_t games_a_round) {
    if (rounds > most_games / games_a_round) {
        throw std::length_error("a tournament cannot have more than " + std::to_string(most_games) +
                                " games");
    }
}

/// Gathers games and numbers them from 1.
class Schedule {
public:
    explicit Schedule(std::size_t length) { m_games.reserve(length); }

    void add(std::int32_t round, std::int32_t sub_round, const TournamentParticipant& white,
             const TournamentParticipant& black) {
        TournamentGame game;
        game.number = static_cast<std::int32_t>(m_games.size() + 1);
        game.round = round;
        game.sub_round = sub_round;
        game.white = white;
        game.black = black;
        m_games.push_back(std::move(game));
    }

    /// The same with colours given by the game's parity: `first` has White when `index` is even.
    void add_alternating(std::int32_t index, std::int32_t round, std::int32_t sub_round,
                         const TournamentParticipant& first, const TournamentParticipant& second) {
        const bool even = index % 2 == 0;
        add(round, sub_round, even ? first : second, even ? second : first);
    }

    std::vector<TournamentGame> take() { return std::move(m_games); }

private:
    std::vector<TournamentGame> m_games;
};

/// The two halves of the circle: participants at the same index meet.
///
/// Two queues rather than a formula by round and table: the schedule starts a cycle where the last one
/// stopped, which is a state and no function of the cycle.
struct Circle {
    explicit Circle(std::int32_t participants) {
        const std::int32_t half = (participants + 1) / 2;
        for (std::int32_t id = 1; id <= half; ++id) upper.push_back(id);
        if (participants % 2 == 1) lower.push_back(bye);
        for (std::int32_t id = half + 1; id <= participants; ++id) lower.push_back(id);
    }

    /// Moves everybody one place on, but for the first of the lower half.
    void turn() {
        if (lower.size() < 2) return;  // two participants: nobody else can move
        const std::int32_t fixed = lower.front();
        lower.pop_front();
        upper.push_front(lower.front());
        lower.pop_front();
        lower.push_back(upper.back());
        upper.pop_back();
        lower.push_front(fixed);
    }

    std::deque<std::int32_t> upper;
    std::deque<std::int32_t> lower;
};

}  // namespace

std::vector<TournamentGame> match(const Participants& participants, std::int32_t rounds) {
    rounds = limited(rounds);
    Schedule schedule(static_cast<std::size_t>(rounds));
    for (std::int32_t i = 0; i < rounds; ++i) {
        schedule.add_alternating(i, i + 1, 0, participants[1], participants[0]);
    }
    return schedule.take();
}

std::vector<TournamentGame> gauntlet(const Participants& participants, std::int32_t rounds) {
    rounds = limited(rounds);
    const std::size_t opponents = participants.size() - 1;
    check_length(static_cast<std::size_t>(rounds), opponents);
    Schedule schedule(static_cast<std::size_t>(rounds) * opponents);
    for (std::size_t j = 1; j <= opponents; ++j) {
        for (std::int32_t k = 0; k < rounds; ++k) {
            schedule.add_alternating(k, static_cast<std::int32_t>(j), k + 1, participants[j],
                                     participants[0]);
        }
    }
    return schedule.take();
}

std::vector<TournamentGame> round_robin(const Participants& participants, std::int32_t rounds) {
    if (rounds < 1) return {};
    const std::size_t turns = participants.size() - 1;
    const std::size_t games_a_cycle = turns * (participants.size() / 2);
    check_length(static_cast<std::size_t>(rounds), games_a_cycle);

    Schedule schedule(static_cast<std::size_t>(rounds) * games_a_cycle);
    Circle circle(static_cast<std::int32_t>(participants.size()));
    const auto by_id = [&](std::int32_t id) -> const TournamentParticipant& {
        return participants[static_cast<std::size_t>(id - 1)];
    };
    for (std::int32_t cycle = 1; cycle <= rounds; ++cycle) {
        std::int32_t games_in_cycle = 0;
        for (std::size_t turn = 0; turn < turns; ++turn) {
            for (std::size_t i = circle.lower.front() == bye ? 1 : 0; i < circle.lower.size(); ++i) {
                schedule.add_alternating(cycle - 1, cycle, ++games_in_cycle, by_id(circle.lower[i]),
                                         by_id(circle.upper[i]));
            }
            circle.turn();
        }
    }
    return schedule.take();
}

}  // namespace velmora::pairings
