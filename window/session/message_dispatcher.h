#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "channel/to_window.h"
#include "chess/board/side.h"
#include "window/session/dialogs.h"
#include "window/session/game_session.h"
#include "window/session/manager_link.h"
#include "window/session/screen.h"
#include "window/session/seated_engine.h"

namespace velmora {

/// Carries out the referee's lines on the session and the screen, one function a line.
///
/// The board changes only where the mode lets the referee move it.
///
/// A line is decoded to a value first, and std::visit picks the function; a line that is added to the
/// language without one is taken by the template, which does nothing. It changes the session, and what is
/// to be shown follows from the session's notice; only what isn't part of the game goes to the screen from
/// here.
class MessageDispatcher {
public:
    MessageDispatcher(GameSession& session, const Screen& screen, Dialogs& dialogs, ManagerLink& manager,
                      SeatedEngine& engine)
        : m_session(session), m_screen(screen), m_dialogs(dialogs), m_manager(manager), m_engine(engine) {}

    /// Handles one line; a line whose first word is none of the language is ignored.
    /// @throws whatever a handler throws; the caller's loop contains it
    void process(const std::string& line);

    /// Has `listener` told of every line behind its handling: the way to a view that shows what the referee
    /// says and changes nothing by it.
    void listen(std::function<void(const to_window::Line&)> listener) {
        m_listeners.push_back(std::move(listener));
    }

private:
    /// A line that brings about nothing here.
    template <class Line>
    void handle(const Line& /*line*/) {}

    // A game as it is played
    void handle(const to_window::PlayMove& line);
    void handle(const to_window::MoveTime& line);
    void handle(const to_window::TakeBack& line);
    void handle(const to_window::SetBoard& line);
    void handle(const to_window::NewGame& line);
    void handle(const to_window::GameOver& line);
    void handle(const to_window::Termination& line) { m_termination = line.text; }
    void handle(const to_window::SearchOutput& line);

    // What is shown around the board
    void handle(const to_window::SetEvent& line);
    void handle(const to_window::SetSite& line);
    void handle(const to_window::SetRound& line);
    void handle(const to_window::SetLevel& line);
    void handle(const to_window::PlayerName& line);
    void handle(const to_window::PlayerElo& line);
    void handle(const to_window::EngineName& line);
    void handle(const to_window::SetArrow& line);
    void handle(const to_window::ClearArrows& line);

    // The program
    void handle(const to_window::TellUser& line);
    void handle(const to_window::ResetMode& line);
    void handle(const to_window::TournamentFinished& line);
    void handle(const to_window::Quit& line);

    // Lines cross on their way: one that the referee wrote before it heard of the person's last step would
    // set the board back, while the referee goes on to follow that step. Such lines are dropped. One step of
    // that kind is to choose the match again while the referee still plays the one that was left.
    bool shows_match() const;
    bool awaits_move() const;
    bool awaits_take_back() const { return m_screen.frame.mode() == Mode::learn_openings; }
    bool awaits_start() const;
    bool awaits_end() const;

    GameSession& m_session;
    Screen m_screen;
    Dialogs& m_dialogs;
    ManagerLink& m_manager;
    SeatedEngine& m_engine;
    std::string m_termination;  // of the game that ends with the next line
    std::vector<std::function<void(const to_window::Line&)>> m_listeners;
};

}  // namespace velmora
