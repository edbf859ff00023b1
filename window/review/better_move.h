#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "review/review_settings.h"
#include "window/review/review_link.h"
#include "window/review/review_run.h"
#include "window/session/board_view.h"
#include "window/session/game_session.h"
#include "window/session/message_dispatcher.h"
#include "window/session/navigation.h"
#include "window/session/seated_engine.h"
#include "window/session/user_moves.h"
#include "window/session/window_frame.h"

namespace velmora {

/// "Find the better move": the person is put ahead of a move that a review has marked, the engine's line is
/// covered, and a move on the board is judged instead of played.
///
/// Right is the engine's choice, and every move that loses less than 0.05 of the winning chances, which the
/// engine is asked about with the effort of the review. A question ends when another position of the record
/// is looked at. The record isn't changed.
class BetterMove {
public:
    BetterMove(GameSession& session, WindowFrame& frame, Navigation& navigation, UserMoves& moves,
               const SeatedEngine& engine, const ReviewRun& review, ReviewLink& link,
               MessageDispatcher& dispatcher);
    BetterMove(const BetterMove&) = delete;  // session, moves and dispatcher know where it is
    BetterMove& operator=(const BetterMove&) = delete;

    /// Whether the move on the board, or the one that comes next, is a marked one with a better one beside
    /// it, and no other review runs.
    bool can_ask() const { return !m_link.is_running() && marked_move() > 0; }
    /// Goes ahead of that move and asks.
    void ask();
    /// Tells what the better move is.
    void give_up();

    /// Whether an answer is looked for.
    bool is_asking() const { return m_state == State::asked || m_state == State::judging; }
    /// What there is to say: the question, or the verdict on an answer; empty without one.
    const std::string& text() const { return m_text; }
    /// The node of the record whose alternatives are covered, -1 for none.
    std::int32_t covered() const { return is_asking() ? m_place : -1; }

private:
    enum class State { none, asked, judging, solved };

    std::int32_t marked_move() const;
    bool answer(const Move& move);
    void judge(const Move& move, const std::string& san);
    void take(const to_window::Reviewed& line);
    void set(State state, const std::string& text);
    std::string solution() const;

    GameSession& m_session;
    WindowFrame& m_frame;
    Navigation& m_navigation;
    const SeatedEngine& m_engine;
    const ReviewRun& m_review;
    ReviewLink& m_link;

    State m_state = State::none;
    std::string m_text;
    std::int32_t m_marked = 0;  // the move of the game that is to be bettered
    std::int32_t m_place = 0;   // the node ahead of it
    std::int32_t m_run = 0;
    std::string m_answer;  // what is being judged, in SAN
};

}  // namespace velmora
