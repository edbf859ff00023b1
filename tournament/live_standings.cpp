#include "tournament/live_standings.h"

#include <algorithm>

namespace velmora {

namespace {

constexpr std::size_t most_open_shown = 100;

/// Participants have the ids from 1 on.
std::size_t player_of(const TournamentParticipant& participant) {
    return static_cast<std::size_t>(participant.id) - 1;
}

bool awaits_result(const TournamentGame& game) { return game.result == "*"; }

}  // namespace

LiveStandings::LiveStandings(const Tournament& tournament)
    : m_title(tournament.event()),
      m_games(tournament.games()),
      m_standings(tournament.participants_list().size()) {
    for (const auto& participant : tournament.participants_list()) m_names.push_back(participant.name);
    for (const auto& game : m_games) {
        m_standings.add(player_of(game.white), player_of(game.black), game.result);
        m_open += awaits_result(game) ? 1 : 0;
    }
    skip_played();
}

void LiveStandings::skip_played() {
    while (m_next < m_games.size() && !awaits_result(m_games[m_next])) ++m_next;
}

bool LiveStandings::set_result(std::int32_t number, const std::string& result) {
    // Games stand in the order of their numbers, from 1 on, unless somebody has edited the file.
    const auto found = std::ranges::find(m_games, number, &TournamentGame::number);
    if (found == m_games.end() || !awaits_result(*found) || result == "*") return false;
    found->result = result;
    m_standings.add(player_of(found->white), player_of(found->black), result);
    --m_open;
    skip_played();
    return true;
}

std::int32_t LiveStandings::next_game() const { return m_next < m_games.size() ? m_games[m_next].number : 0; }

StandingsSheet LiveStandings::sheet() const {
    StandingsSheet sheet;
    sheet.title = m_title;
    sheet.lines = standings_lines(m_standings, m_names);
    sheet.game_count = m_games.size();
    sheet.open_count = m_open;
    for (std::size_t i = m_next; i < m_games.size() && sheet.open.size() < most_open_shown; ++i) {
        const auto& game = m_games[i];
        if (!awaits_result(game)) continue;
        sheet.open.push_back(std::to_string(game.number) + ": " + game.white.name + " - " + game.black.name);
    }
    return sheet;
}

}  // namespace velmora
