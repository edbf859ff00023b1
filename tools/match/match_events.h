#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "matches/game_pool.h"
#include "matches/match_pgn.h"
#include "matches/match_state.h"
#include "tools/match/fault_table.h"
#include "tools/match/live_view.h"
#include "tools/match/options.h"
#include "tools/match/reporter.h"
#include "tournament/standings.h"

namespace velmora {

/// What is done with each event of the pool: it is told, and a result is kept wherever it has to stand.
class MatchEvents {
public:
    /// Stores a result where it has to stand besides the state; may throw std::runtime_error.
    using Store = std::function<void(std::uint64_t number, const std::string& result)>;

    /// @param total  games of the whole match
    MatchEvents(const MatchOptions& options, MatchState& state, GamePool& pool, std::uint64_t total,
                Store store);

    void operator()(const GameStarted& event);
    void operator()(const StartFailed& event);
    void operator()(const FinishedGame& event);

    /// Tells what has come of it. The exit status: 0, or 1 where an engine or the disk failed.
    int end();

private:
    void keep(const FinishedGame& event);
    void store(const StateGame& game);
    void add_end_position(const FinishedGame& event);
    void draw();
    void end_where_decided();

    const MatchOptions& m_options;
    MatchState& m_state;
    GamePool& m_pool;
    const Store m_store;
    MatchPgn m_pgn;
    const bool m_live;
    Reporter m_reporter;
    LiveView m_view;
    FaultTable m_faults;
    Standings m_standings;
    bool m_failed = false;
};

}  // namespace velmora
