#pragma once

#include <functional>
#include <string>

#include "window/session/clock_view.h"
#include "window/session/dialogs.h"
#include "window/session/game_session.h"
#include "window/session/manager_link.h"
#include "window/session/message_dispatcher.h"
#include "window/session/mode_controller.h"
#include "window/table/earlier_games.h"
#include "window/table/notice.h"

namespace velmora {

/// Keeps the window's game while it stands neither in the archive nor in a file, and takes up an earlier one.
///
/// The game is written in the tick behind each change, at most 50 ms after it: its move is on the board and
/// with the engine by then. The games of a match aren't kept, since the match plays them again.
class GameKeeper {
public:
    /// @param directory  of the kept games, with a trailing slash
    GameKeeper(GameSession& session, ClockView& clocks, WindowFrame& frame, Dialogs& dialogs,
               ModeController& modes, ManagerLink& manager, const SeatedEngine& engine,
               MessageDispatcher& dispatcher, Notice& notice, const std::string& directory);
    GameKeeper(const GameKeeper&) = delete;  // session and dispatcher know where it is
    GameKeeper& operator=(const GameKeeper&) = delete;

    /// Keeps what has changed; for the window's tick.
    void tick();
    /// The game stands in a file as it is.
    void note_saved() {
        m_elsewhere = m_session.pgn();
        m_changed = true;
    }

    /// Lets the person choose a game of the list and goes on with it: record, position, clocks, and the
    /// engine that played, if one is there.
    void choose();

private:
    LeftGame left_game() const;
    void take_up(const EarlierGame& chosen);
    void play_on(const LeftGame& left, bool engine_to_move);

    GameSession& m_session;
    ClockView& m_clocks;
    WindowFrame& m_frame;
    Dialogs& m_dialogs;
    ModeController& m_modes;
    ManagerLink& m_manager;
    const SeatedEngine& m_engine;
    Notice& m_notice;
    EarlierGames m_games;
    std::string m_elsewhere;  // the record's text as it stands in the archive or in a file
    bool m_changed = false;
    bool m_complained = false;
};

}  // namespace velmora
