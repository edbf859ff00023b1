#include "tournament/standings.h"

#include <algorithm>
#include <utility>

namespace velmora {

namespace {

/// Numbers of encounters come from files; one beyond any schedule mustn't cost memory.
constexpr std::uint64_t most_encounters = 1 << 24;

std::optional<std::size_t> half_points_of_white(std::string_view result) {
    if (result == "1-0") return 2;
    if (result == "0-1") return 0;
    if (result == "1/2-1/2") return 1;
    return {};
}

double points(const OutcomeCounts& counts) { return static_cast<double>(counts.half_points()) / 2; }

double share_of_points(const Standings::Row& row) { return row.counts.total() == 0 ? -1 : row.rating.score; }

}  // namespace

Standings::Standings(std::size_t players) : m_players(players), m_meetings(players * players) {}

void Standings::add(std::size_t white, std::size_t black, std::string_view result,
                    std::optional<std::uint64_t> encounter) {
    const auto halves = half_points_of_white(result);
    if (!halves || white == black || std::max(white, black) >= m_players) return;
    ++m_games;
    ++m_meetings[white * m_players + black].games[*halves];
    if (!encounter || *encounter >= most_encounters) return;
    if (*encounter >= m_waiting.size()) m_waiting.resize(std::max(*encounter + 1, 2 * m_waiting.size()));
    const std::size_t halves_of_lower = white < black ? *halves : 2 - *halves;
    const auto first = std::exchange(m_waiting[*encounter], 0);
    if (first == 0) {
        m_waiting[*encounter] = static_cast<std::uint8_t>(1 + halves_of_lower);
    } else {
        ++m_meetings[std::min(white, black) * m_players + std::max(white, black)]
              .pairs[first - 1 + halves_of_lower];
    }
}

OutcomeCounts Standings::against(std::size_t player, std::size_t opponent) const {
    OutcomeCounts counts = meeting(player, opponent);
    return counts += meeting(opponent, player).reversed();
}

double Standings::points_against(std::size_t player, const std::vector<std::size_t>& opponents) const {
    double sum = 0;
    for (const std::size_t opponent : opponents) {
        if (opponent != player) sum += points(against(player, opponent));
    }
    return sum;
}

std::vector<Standings::Row> Standings::table() const {
    std::vector<Row> rows;
    for (std::size_t player = 0; player < m_players; ++player) {
        Row row;
        row.player = player;
        for (std::size_t opponent = 0; opponent < m_players; ++opponent) {
            if (opponent == player) continue;
            row.counts += against(player, opponent);
            row.wins_as_white += meeting(player, opponent).wins();
            row.wins_as_black += meeting(opponent, player).losses();
        }
        row.rating = rating_of(row.counts, RatingUnit::game);
        rows.push_back(row);
    }
    for (auto& row : rows) {
        for (const auto& opponent : rows) {
            if (opponent.player == row.player) continue;
            row.sonneborn_berger += points(opponent.counts) * points(against(row.player, opponent.player));
        }
    }
    const auto better_share = [](const Row& a, const Row& b) {
        return share_of_points(a) > share_of_points(b);
    };
    std::stable_sort(rows.begin(), rows.end(), better_share);
    for (auto first = rows.begin(); first != rows.end();) {
        const auto last = std::upper_bound(first, rows.end(), *first, better_share);
        std::vector<std::size_t> equals;
        for (auto row = first; row != last; ++row) equals.push_back(row->player);
        std::stable_sort(first, last, [&](const Row& a, const Row& b) {
            const double of_a = points_against(a.player, equals);
            const double of_b = points_against(b.player, equals);
            return of_a != of_b ? of_a > of_b : a.sonneborn_berger > b.sonneborn_berger;
        });
        first = last;
    }
    return rows;
}

}  // namespace velmora
