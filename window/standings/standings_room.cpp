#include "window/standings/standings_room.h"

#include <exception>
#include <utility>
#include <variant>

#include "game/game_result.h"
#include "tournament/tournament.h"

namespace velmora {

StandingsRoom::StandingsRoom(const WindowFrame& frame, MessageDispatcher& dispatcher) : m_frame(frame) {
    dispatcher.listen([this](const to_window::Line& line) {
        if (const auto* const progress = std::get_if<to_window::MatchProgress>(&line)) {
            begin(*progress);
        } else if (const auto* const over = std::get_if<to_window::GameOver>(&line)) {
            end(*over);
        } else if (std::holds_alternative<to_window::TournamentFinished>(line)) {
            m_game = 0;
            if (m_standings) ++m_ended_runs;
        }
    });
}

void StandingsRoom::load(const std::string& name) {
    m_name = name;
    m_game = 0;
    try {
        Tournament tournament;
        tournament.load(name);
        m_standings.emplace(tournament);
    } catch (const std::exception&) {
        m_standings.reset();
    }
    update();
}

void StandingsRoom::begin(const to_window::MatchProgress& progress) {
    if (!m_name.empty() && (!m_standings || m_standings->next_game() != progress.game)) load(m_name);
    m_game = progress.game;
}

/// Games that aren't the match's end by the same line.
void StandingsRoom::end(const to_window::GameOver& line) {
    const auto game = std::exchange(m_game, 0);
    if (game == 0 || !m_standings || m_frame.mode() != Mode::tournament) return;
    if (m_standings->set_result(game, std::string(result_token(line.result)))) update();
}

void StandingsRoom::update() {
    ++m_version;
    m_sheet = m_standings ? m_standings->sheet() : StandingsSheet();
}

}  // namespace velmora
