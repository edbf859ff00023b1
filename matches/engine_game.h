#pragma once

#include <chrono>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

#include "analysis/evaluation.h"
#include "chess/board/game_outcome.h"
#include "chess/board/side.h"
#include "chess/moves/position.h"
#include "matches/adjudicator.h"
#include "matches/match_engine.h"

namespace velmora {

/// How a game came to its end, for the record's tag "Termination" and the table of faults.
enum class Termination { normal, adjudication, time_forfeit, illegal_move, abandoned, stalled, unterminated };

/// A move as it was played, with what the engine said of it.
struct PlayedMove {
    std::optional<Evaluation> score;  ///< White's view
    std::int32_t depth = 0;           ///< plies
    std::chrono::nanoseconds time{0};
};

struct PlayedGame {
    std::optional<GameOutcome> outcome;  ///< none for a game that was broken off
    Termination termination = Termination::normal;
    Side at_fault = Side::white;           ///< where the termination is somebody's fault
    ChessPosition start;                   ///< with the opening's moves
    ChessPosition end;                     ///< with all moves
    std::vector<PlayedMove> moves;         ///< behind the opening
    std::chrono::nanoseconds duration{0};  ///< of the whole game
};

/// One game between two engines that have been started. It waits for nothing but the queue of the engine on
/// move.
class EngineGame {
public:
    EngineGame(BySide<MatchEngine*> engines, const AdjudicationSettings& adjudication, bool chess960,
               std::stop_token leaving)
        : m_engines(engines),
          m_adjudicator(adjudication),
          m_chess960(chess960),
          m_leaving(std::move(leaving)) {}

    PlayedGame play(const ChessPosition& opening);

private:
    bool begin();
    bool play_move();
    void end(Side loser, Termination termination, const std::string& reason);
    std::optional<EngineEvent> wait_for_move(MatchEngine& engine,
                                             std::chrono::steady_clock::time_point start);
    void charge(Side side, std::chrono::nanoseconds taken);
    void note(Side side, std::chrono::nanoseconds taken);

    BySide<MatchEngine*> m_engines;  // borrowed, never null
    Adjudicator m_adjudicator;
    const bool m_chess960;
    const std::stop_token m_leaving;
    BySide<std::chrono::nanoseconds> m_left{};
    BySide<std::int32_t> m_made{};  // moves of the session
    PlayedGame m_game;
};

}  // namespace velmora
