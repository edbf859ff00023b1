#pragma once

#include <optional>
#include <string>

#include "channel/to_window.h"
#include "window/session/game_session.h"
#include "window/session/message_dispatcher.h"
#include "window/session/seated_engine.h"
#include "window/session/window_frame.h"

namespace velmora {

/// What is going on, in the words of the line beside the clocks.
///
/// It is asked and tells nobody: mode, engine, game and match change at different moments and by different
/// causes, and a line that is made anew a few times a second can't miss one of them.
class Activity {
public:
    /// Listens to the referee for the progress of a match; must outlive its last line.
    Activity(const GameSession& session, const WindowFrame& frame, const SeatedEngine& engine,
             MessageDispatcher& dispatcher);
    Activity(const Activity&) = delete;  // the dispatcher knows where it is
    Activity& operator=(const Activity&) = delete;

    /// "Human - computer: Stockfish thinks", "Loading fairymax...", "Game 3 of 4: 1.5 - 0.5".
    std::string text() const;

    /// The last move and the opening's name, "12... Nf6, Sicilian Defense"; empty without either.
    std::string last_move() const;

private:
    std::string human_computer() const;
    std::string match() const;

    const GameSession& m_session;
    const WindowFrame& m_frame;
    const SeatedEngine& m_engine;
    std::optional<to_window::MatchProgress> m_progress;
};

}  // namespace velmora
