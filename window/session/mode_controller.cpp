#include "window/session/mode_controller.h"

#include <array>

namespace velmora {

void ModeController::on_switched(Mode mode, bool on) {
    static constexpr std::array<Handler, mode_count> handlers = {
        &ModeController::setup,          &ModeController::human_human,
        &ModeController::human_computer, &ModeController::analyze_position,
        &ModeController::learn_openings, &ModeController::tournament};
    m_session.select(std::nullopt);
    (this->*handlers[static_cast<std::size_t>(mode)])(on);
}

void ModeController::follow_position() {
    send_position();
    const Mode mode = m_frame.mode();
    if (mode == Mode::human_computer) leave_move_to_person();
    if (mode == Mode::analyze_position) m_manager.send(to_referee::AnalyzePosition());
}

/// Whichever side is to move, it is the person's, and the engine takes the other: nobody else would begin.
void ModeController::leave_move_to_person() {
    const Side engine = opposite(m_session.side_to_move());
    m_session.seat(Seats::with_engine(engine));
    m_session.hold_clocks(false);
    m_manager.send(to_referee::PlayOther());
    m_clocks.stop_clocks();
    m_clocks.mark_clock(m_session.side_to_move());
}

void ModeController::send_position() { m_manager.send(to_referee::SetBoard{m_session.position().fen()}); }

void ModeController::setup(bool on) {
    m_frame.set_sensitive(MenuEntry::start_thinking, false);
    if (on) {
        m_session.clear_rights();
    } else {
        send_position();
    }
}

void ModeController::human_human(bool on) {
    if (!on) return;
    m_frame.set_sensitive(MenuEntry::start_thinking, false);
    m_session.seat(Seats::of_people());
    m_session.forget_search();
    m_clocks.stop_clocks();
    m_session.hold_clocks(true);
    m_manager.send(to_referee::HumanHuman());
    m_clocks.mark_clock(m_session.side_to_move());
}

void ModeController::human_computer(bool on) {
    m_frame.set_sensitive(MenuEntry::start_thinking, on);
    m_frame.set_sensitive(MenuEntry::ponder, on);
    if (on) follow_position();
}

void ModeController::analyze_position(bool on) {
    if (!on) return;
    m_frame.set_sensitive(MenuEntry::start_thinking, false);
    m_session.hold_clocks(true);
    m_session.seat(Seats::of_people());
    follow_position();
}

void ModeController::learn_openings(bool on) {
    if (!on) {
        m_manager.send(to_referee::LearnOpenings{0});
        return;
    }
    const int mask = m_dialogs.choose_hints();
    if (mask == 0) {
        // A drill without hints is none. Without a mode of its own the referee would go on with the last.
        m_frame.select_mode(Mode::human_human);
        return;
    }
    m_frame.set_sensitive(MenuEntry::start_thinking, false);
    m_session.hold_clocks(true);
    m_session.seat(Seats::of_people());
    m_board.clear_arrows();
    m_manager.send(to_referee::LearnOpenings{mask});
    // The referee has not followed the moves of a game between people: the drill starts from what is on the
    // board.
    send_position();
}

void ModeController::tournament(bool on) {
    if (!on) {
        m_engine.leave_match();
        return;
    }
    m_frame.set_sensitive(MenuEntry::start_thinking, false);
    // The board of a match only looks on; its clocks follow the moves.
    m_session.seat(Seats::of_engines());
    m_session.hold_clocks(false);
    m_manager.send(to_referee::StartTournament());
    m_engine.begin_match();
}

bool ModeController::awaits_engine() const {
    const Mode mode = m_frame.mode();
    return mode == Mode::tournament || mode == Mode::analyze_position ||
           (mode == Mode::human_computer && m_session.engine_to_move());
}

void ModeController::start_thinking() {
    if (m_frame.mode() != Mode::human_computer) return;
    const Side engine = m_session.side_to_move();
    m_session.seat(Seats::with_engine(engine));
    m_session.hold_clocks(false);
    m_manager.send(to_referee::Go());
    m_clocks.start_clock(engine);
}

void ModeController::new_game() {
    m_clocks.stop_clocks();
    m_board.clear_arrows();
    m_manager.send(to_referee::NewGame());
    m_session.new_game();
    if (m_engine.is_there()) {
        m_session.seat(Seats::with_engine(Side::black));
        m_frame.select_mode(Mode::human_computer);
        m_frame.set_sensitive(MenuEntry::start_thinking, true);
    } else {
        m_frame.select_mode(Mode::human_human);
    }
}

}  // namespace velmora
