#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "window/session/dialogs.h"
#include "window/session/game_session.h"
#include "window/session/manager_link.h"
#include "window/session/message_dispatcher.h"
#include "window/session/mode_controller.h"
#include "window/session/user_moves.h"
#include "window/table/clock_history.h"
#include "window/table/notice.h"

namespace velmora {

/// What a person may do with a game beside moving: resign, offer and claim draws, take back, have the engine
/// move, note a result, and lose on time.
///
/// Against an engine the referee decides, and all that follows comes by its lines. Between two people the
/// window keeps the game alone and decides by the rules; the referee is told the result, and ends the game as
/// it ends every other.
class TableRoom {
public:
    TableRoom(GameSession& session, ClockView& clocks, WindowFrame& frame, Dialogs& dialogs,
              ModeController& modes, ManagerLink& manager, const SeatedEngine& engine,
              MessageDispatcher& dispatcher, UserMoves& moves);
    TableRoom(const TableRoom&) = delete;  // session, moves and dispatcher know where it is
    TableRoom& operator=(const TableRoom&) = delete;

    // Each does nothing where its entry of the menu is insensitive.
    void resign();
    void offer_draw();
    void take_back();
    void move_now();
    void claim_draw();
    void note_result();
    /// Whether a fallen flag loses a game against the engine.
    void set_lose_on_time(bool on);

    /// Looks at the person's flag, and brings the entries of the menu up to date; for the window's tick.
    void tick();

    Notice& notice() { return m_notice; }

private:
    enum class Players { none, with_engine, two_people };

    Players players() const;
    bool is_over() const;
    bool can_end() const;
    bool can(MenuEntry entry) const;
    bool can_take_back() const;
    bool person_has_moved() const;
    void end(const GameOutcome& outcome);
    void offer_between_people();
    void follow(Changes changes);
    void announce_end();
    void take(const to_window::Line& line);
    void take_back_plies(int plies);
    std::string game_line() const;

    GameSession& m_session;
    ClockView& m_clocks;
    WindowFrame& m_frame;
    Dialogs& m_dialogs;
    ModeController& m_modes;
    ManagerLink& m_manager;
    const SeatedEngine& m_engine;
    ClockHistory m_times;
    Notice m_notice;

    std::optional<Side> m_offering;  // who has offered a draw, of two people
    bool m_awaits_take_back = false;
    bool m_result_sent = false;  // of two people; the referee's answer is on its way
    bool m_lose_on_time = false;
    bool m_flag_told = false;
    std::array<std::optional<bool>, 6>
        m_shown;  // what the menu was told last, by place in the list of entries
};

}  // namespace velmora
