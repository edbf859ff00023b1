#include "window/session/navigation.h"

#include <iostream>

namespace velmora {

Navigation::Navigation(GameSession& session, BoardView& board, WindowFrame& frame, Dialogs& dialogs,
                       ModeController& modes)
    : m_session(session), m_board(board), m_frame(frame), m_dialogs(dialogs), m_modes(modes) {
    m_session.on_change([this](Changes changes) {
        const bool engine_plays = changes.has(Change::seats) && m_session.seats() != Seats::of_people();
        if (changes.has(Change::game) || engine_plays) m_left.reset();
    });
}

void Navigation::to_start() {
    press([](Game& game) { return game.to_start(); });
}

void Navigation::back() {
    press([](Game& game) { return game.back(); });
}

void Navigation::forward() {
    press([](Game& game) { return game.forward(); });
}

void Navigation::to_end() {
    press([](Game& game) { return game.to_end(); });
}

void Navigation::move_by(int steps) {
    for (; steps > 0 && m_session.can_go_forward(); --steps) forward();
    for (; steps < 0 && m_session.can_go_back(); ++steps) back();
}

void Navigation::to_node(std::int32_t id) {
    if (m_session.record().tree().has_node(id)) go([id](Game& game) { return game.go_to(id); });
}

void Navigation::resume_game() {
    if (!m_left) return;
    const LeftGame left = *m_left;
    m_left.reset();
    to_node(left.node);
    m_frame.select_mode(Mode::human_computer);
    if (left.engine_to_move) m_modes.start_thinking();
}

void Navigation::to_text_offset(std::size_t offset) {
    go([offset](Game& game) { return game.goto_text_offset(offset); });
}

/// In a match the buttons and keys do nothing, since the board follows the referee there.
void Navigation::press(const GameSession::Step& step) {
    if (m_session.seats().only_looks_on()) return;
    m_session.hold_clocks(true);
    go(step);
}

void Navigation::note_left_game() {
    if (m_frame.mode() != Mode::human_computer || m_session.record().is_empty()) return;
    m_left = LeftGame{m_session.record().current(), m_session.engine_to_move()};
}

/// A record from a file may hold a move that can't be played. The board goes as far as it can then, and the
/// word about it comes when it shows where that is.
void Navigation::go(const GameSession::Step& step) {
    note_left_game();
    const Mode mode = m_frame.mode();
    if (mode != Mode::analyze_position && mode != Mode::learn_openings)
        m_frame.select_mode(Mode::human_human);
    m_board.clear_arrows();
    const auto node = m_session.record().current();
    std::string refused;
    try {
        m_session.step(step);
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        refused = m_session.next_move_text() + " can't be played here";
        if (m_session.record().current() == node) return m_dialogs.tell_user(refused, "");
    }
    m_modes.follow_position();
    if (!refused.empty()) m_dialogs.tell_user(refused, "");
}

}  // namespace velmora
