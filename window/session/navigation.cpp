#include "window/session/navigation.h"

#include <iostream>

namespace velmora {

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

void Navigation::to_text_offset(std::size_t offset) {
    go([offset](Game& game) { return game.goto_text_offset(offset); });
}

void Navigation::press(const Step& step) {
    if (m_desk.only_looks_on()) return;
    m_desk.clocks_held = true;
    go(step);
}

void Navigation::go(const Step& step) {
    const Mode mode = m_screen.mode();
    if (mode != Mode::analyze_position && mode != Mode::learn_openings)
        m_screen.select_mode(Mode::human_human);
    m_screen.clear_arrows();
    m_comments.store();
    m_desk.selected.reset();
    const auto node = m_desk.game.current();
    std::string fen, refused;
    try {
        fen = step(m_desk.game);
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        refused = m_desk.next_move_text() + " can't be played here";
        if (m_desk.game.current() == node) return m_dialogs.tell_user(refused, "");
        // On the way to the end, the record stays at the last node that could be reached; the board follows
        // it.
        fen = m_desk.game.fen();
    }
    m_comments.show();
    if (!fen.empty()) m_desk.position.set_fen(fen);
    m_desk.tag_opening();
    m_screen.show_game();
    m_screen.mark_clock(m_desk.side_to_move());
    m_screen.show_position();
    m_modes.follow_position();
    if (!refused.empty()) m_dialogs.tell_user(refused, "");
}

}  // namespace velmora
