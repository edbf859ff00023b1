#include "window/session/mode_controller.h"

#include <array>

namespace velmora {

void ModeController::on_switched(Mode mode, bool on) {
    static constexpr std::array<Handler, mode_count> handlers = {
        &ModeController::setup,          &ModeController::human_human,
        &ModeController::human_computer, &ModeController::analyze_position,
        &ModeController::learn_openings, &ModeController::tournament};
    m_desk.selected.reset();
    (this->*handlers[static_cast<std::size_t>(mode)])(on);
    m_screen.show_position();
}

void ModeController::follow_position() {
    send_position();
    const Mode mode = m_screen.mode();
    if (mode == Mode::human_computer) leave_move_to_person();
    if (mode == Mode::analyze_position) m_manager.send(to_referee::AnalyzePosition());
}

/// Whichever side is to move, it is the person's, and the engine takes the other: nobody else would begin.
void ModeController::leave_move_to_person() {
    const Side engine = opposite(m_desk.side_to_move());
    m_desk.set_engine_plays(engine == Side::white, engine == Side::black);
    m_desk.clocks_held = false;
    m_manager.send(to_referee::PlayOther());
    m_screen.stop_clocks();
    m_screen.mark_clock(m_desk.side_to_move());
}

void ModeController::send_position() { m_manager.send(to_referee::SetBoard{m_desk.position.fen()}); }

void ModeController::setup(bool on) {
    m_screen.set_sensitive("StartThinking", false);
    m_desk.setup = on;
    if (on) {
        m_desk.position.set_rights(0);
    } else {
        send_position();
    }
}

void ModeController::human_human(bool on) {
    if (!on) return;
    m_screen.set_sensitive("StartThinking", false);
    m_desk.set_engine_plays(false, false);
    m_desk.clear_annotations();
    m_screen.stop_clocks();
    m_desk.clocks_held = true;
    m_manager.send(to_referee::HumanHuman());
    m_screen.mark_clock(m_desk.side_to_move());
}

void ModeController::human_computer(bool on) {
    m_screen.set_sensitive("StartThinking", on);
    m_screen.set_sensitive("Ponder", on);
    if (on) follow_position();
}

void ModeController::analyze_position(bool on) {
    if (!on) return;
    m_screen.set_sensitive("StartThinking", false);
    m_desk.clocks_held = true;
    m_desk.set_engine_plays(false, false);
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
        m_screen.select_mode(Mode::human_human);
        return;
    }
    m_screen.set_sensitive("StartThinking", false);
    m_desk.clocks_held = true;
    m_desk.set_engine_plays(false, false);
    m_screen.clear_arrows();
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
    m_screen.set_sensitive("StartThinking", false);
    // The board of a match only looks on; its clocks follow the moves.
    m_desk.set_engine_plays(true, true);
    m_desk.clocks_held = false;
    m_manager.send(to_referee::StartTournament());
    m_engine.begin_match();
}

bool ModeController::awaits_engine() const {
    const Mode mode = m_screen.mode();
    return mode == Mode::tournament || mode == Mode::analyze_position ||
           (mode == Mode::human_computer && m_desk.engine_to_move());
}

void ModeController::start_thinking() {
    if (m_screen.mode() != Mode::human_computer) return;
    const Side engine = m_desk.side_to_move();
    m_desk.set_engine_plays(engine == Side::white, engine == Side::black);
    m_desk.clocks_held = false;
    m_manager.send(to_referee::Go());
    m_screen.start_clock(engine);
}

void ModeController::new_game() {
    m_desk.position.new_game();
    m_desk.selected.reset();
    m_screen.set_clock_level(m_desk.level);
    m_screen.reset_clocks();
    m_screen.stop_clocks();
    m_screen.mark_clock(Side::white);
    m_screen.clear_arrows();
    m_manager.send(to_referee::NewGame());
    m_desk.reset_record();
    m_desk.clear_annotations();
    m_comments.show();
    m_screen.show_game();
    m_screen.show_position();
    if (m_engine.is_there()) {
        m_desk.set_engine_plays(false, true);
        m_screen.select_mode(Mode::human_computer);
        m_screen.set_sensitive("StartThinking", true);
    } else {
        m_screen.select_mode(Mode::human_human);
    }
}

}  // namespace velmora
