#include "tools/match/match_events.h"

#include <iostream>
#include <stdexcept>
#include <unistd.h>
#include <utility>

#include "base/atomic_file.h"

namespace velmora {

namespace {

void warn(bool saved, const char* what, const std::string& why) {
    if (!saved) std::cerr << "velmora-match: " << what << " waits for room: " << why << '\n';
}

}  // namespace

MatchEvents::MatchEvents(const MatchOptions& options, MatchState& state, GamePool& pool, std::uint64_t total,
                         Store store)
    : m_options(options),
      m_state(state),
      m_pool(pool),
      m_store(std::move(store)),
      m_pgn(options.pgn, options.pool.engines),
      m_live(::isatty(STDOUT_FILENO) == 1 && !options.json),
      m_reporter(std::cout, options, total,
                 m_live ? Reporter::Meanwhile::nothing : Reporter::Meanwhile::lines),
      m_view(std::cout, options, total, state.games().size()),
      m_standings(options.pool.engines.size()) {
    for (const auto& game : state.games()) {
        m_standings.add(game.white, game.black, game.result, game.encounter);
    }
    end_where_decided();
}

void MatchEvents::operator()(const GameStarted& event) {
    m_reporter.started(event.scheduled, event.names);
    m_view.started(event.scheduled, event.names);
    draw();
}

void MatchEvents::operator()(const StartFailed& event) {
    m_failed = true;
    std::cerr << "velmora-match: " << m_reporter.name(event.engine) << ": " << event.fault << '\n';
}

void MatchEvents::operator()(const FinishedGame& event) {
    if (event.game.outcome) keep(event);
    m_reporter.finished(event, m_standings);
    m_view.finished(event.scheduled, event.names.white + " - " + event.names.black + "  " + event.result() +
                                         " {" + event.reason() + "}");
    draw();
    end_where_decided();
}

void MatchEvents::keep(const FinishedGame& event) {
    const auto& scheduled = event.scheduled;
    const StateGame game{scheduled.number, scheduled.encounter, scheduled.white, scheduled.black,
                         event.result()};
    m_standings.add(game.white, game.black, game.result, game.encounter);
    // The record first: a kill between the two leaves a game in it that is played again, rather than one that
    // counts and has no record.
    warn(m_pgn.add(event), "the record", m_pgn.fault());
    warn(m_state.add(game), "the state", "it can't be written");
    m_faults.add(event.names[event.game.at_fault], event.game.termination);
    store(game);
    add_end_position(event);
}

int MatchEvents::end() {
    m_view.clear();
    warn(m_pgn.write_rest(), "the record", m_pgn.fault());
    for (const auto number : m_pgn.unsaved()) {
        std::cerr << "velmora-match: game " << number << " is not in the record\n";
    }
    m_reporter.ended(m_standings);
    m_faults.print(std::cerr);
    return m_failed || !m_pgn.unsaved().empty() ? 1 : 0;
}

void MatchEvents::store(const StateGame& game) {
    try {
        m_store(game.number, game.result);
    } catch (const std::runtime_error& error) {
        std::cerr << "velmora-match: " << error.what() << '\n';
    }
}

void MatchEvents::add_end_position(const FinishedGame& event) {
    if (m_options.end_positions.empty()) return;
    try {
        append_to_file(m_options.end_positions, event.game.end.epd() + '\n');
    } catch (const std::runtime_error& error) {
        std::cerr << "velmora-match: " << error.what() << '\n';
    }
}

void MatchEvents::draw() {
    if (m_live) m_view.draw(m_standings, m_reporter.names());
}

void MatchEvents::end_where_decided() {
    if (decision_of_test(m_options, m_standings) != Sprt::Decision::none) m_pool.finish();
}

}  // namespace velmora
