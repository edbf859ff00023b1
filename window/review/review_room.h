#pragma once

#include "window/review/better_move.h"
#include "window/review/review_link.h"
#include "window/review/review_run.h"

namespace velmora {

/// All that the window does about reviews: the run, the way from mistake to mistake, and the question for the
/// better move.
class ReviewRoom {
public:
    ReviewRoom(GameSession& session, WindowFrame& frame, Dialogs& dialogs, const SeatedEngine& engine,
               ManagerLink& manager, MessageDispatcher& dispatcher, Navigation& navigation, UserMoves& moves);

    ReviewRun& run() { return m_run; }
    BetterMove& better_move() { return m_better_move; }

    /// Whether a move of the main line is marked.
    bool has_mistakes() const;
    /// Go to the nearest marked move of the main line; nothing where there is none, or in a match.
    void to_next_mistake();
    void to_previous_mistake();

    /// Whether the referee has to be woken: an engine that dies or falls silent sends no line.
    bool awaits_engine() const { return m_link.is_running(); }

private:
    void go_to(std::optional<std::int32_t> node);

    GameSession& m_session;
    Navigation& m_navigation;
    ReviewLink m_link;
    ReviewRun m_run;
    BetterMove m_better_move;
};

}  // namespace velmora
